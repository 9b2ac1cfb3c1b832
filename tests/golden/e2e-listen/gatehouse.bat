
@echo off

REM ====================================================================
REM GATEHOUSE.BAT
REM ====================================================================

REM Temporary file created by Gatehouse to start a Quake 3: Arena Server

REM Gatehouse creates the following files every time you
REM start a game: 

REM C:@GAME@\listenmod\gatehouse.cfg
REM C:@GAME@\listenmod\gatehouse.bat

REM if you want to use the same config again without running gatehouse,
REM just rename these two files to something else, for e.g. teamplay.bat
REM and teamplay.cfg

REM You can then put a shortcut to teamplay.bat on your desktop and
REM run the game by double-clicking on it.
REM ====================================================================

C:
cd "@GAME@"
quake3.exe +set e2e_note "a  b" +set com_hunkmegs   64 "a  b%PATH%" %x% €‚ƒ„…†‡ˆ‰Š‹Œ‘’“”•–—˜™š›œŸ ¡¢£¤¥¦§¨©ª«¬­®¯°±²³´µ¶·¸¹º»¼½¾¿ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏĞÑÒÓÔÕÖ×ØÙÚÛÜİŞßàáâãäåæçèéêëìíîïğñòóôõö÷øùúûüışÿ   +set net_ip   "127.0.0.1" 100% €‚ƒ„…†‡ˆ‰Š‹Œ‘’“”•–—˜™š›œŸ ¡¢£¤¥¦§¨©ª«¬­®¯°±²³´µ¶·¸¹º»¼½¾¿ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏĞÑÒÓÔÕÖ×ØÙÚÛÜİŞßàáâãäåæçèéêëìíîïğñòóôõö÷øùúûüışÿ  +set net_port @PORT@  "c  d%" €‚ƒ„…†‡ˆ‰Š‹Œ‘’“”•–—˜™š›œŸ ¡¢£¤¥¦§¨©ª«¬­®¯°±²³´µ¶·¸¹º»¼½¾¿ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏĞÑÒÓÔÕÖ×ØÙÚÛÜİŞßàáâãäåæçèéêëìíîïğñòóôõö÷øùúûüışÿ +set fs_game listenmod +exec gatehouse.cfg +set fs_game listenmod +exec gatehouse.cfg
exit
