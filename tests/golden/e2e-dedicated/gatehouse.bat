
@echo off

REM ====================================================================
REM GATEHOUSE.BAT
REM ====================================================================

REM Temporary file created by Gatehouse to start a Quake 3: Arena Server

REM Gatehouse creates the following files every time you
REM start a game: 

REM C:@GAME@\baseq3\gatehouse.cfg
REM C:@GAME@\baseq3\gatehouse.bat

REM if you want to use the same config again without running gatehouse,
REM just rename these two files to something else, for e.g. teamplay.bat
REM and teamplay.cfg

REM You can then put a shortcut to teamplay.bat on your desktop and
REM run the game by double-clicking on it.
REM ====================================================================

C:
cd "@GAME@"
quake3.exe  +set dedicated 2 +set com_hunkmegs 96 +set net_port @PORT@ +set fs_game baseq3 +exec gatehouse.cfg
exit
