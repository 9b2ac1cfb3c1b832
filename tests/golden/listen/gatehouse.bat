
@echo off

REM ====================================================================
REM GATEHOUSE.BAT
REM ====================================================================

REM Temporary file created by Gatehouse to start a Quake 3: Arena Server

REM Gatehouse creates the following files every time you
REM start a game: 

REM D:\Games\Q3\arena\gatehouse.cfg
REM D:\Games\Q3\arena\gatehouse.bat

REM if you want to use the same config again without running gatehouse,
REM just rename these two files to something else, for e.g. teamplay.bat
REM and teamplay.cfg

REM You can then put a shortcut to teamplay.bat on your desktop and
REM run the game by double-clicking on it.
REM ====================================================================

D:
cd "\Games\Q3"
quake3.exe  +set com_hunkmegs  q3hunksize "50%" €ÿ  +set net_ip  q3serverip "50%" €ÿ  +set net_port  q3serverport "50%" €ÿ  +set fs_game arena +exec gatehouse.cfg +set fs_game arena +exec gatehouse.cfg
exit
