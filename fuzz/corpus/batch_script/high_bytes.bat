C:
cd "\Spieläÿ"
€.exe   "ü
exit
