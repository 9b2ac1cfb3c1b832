
@echo off

REM a note to whoever opens this

C:
cd "\Games\Arena"
quake3.exe  +set fs_game baseq3 +exec gatehouse.cfg
exit
