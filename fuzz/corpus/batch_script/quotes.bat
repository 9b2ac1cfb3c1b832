D:
cd "\My Games\"
"my game.exe" +set sv_hostname "Two  Words" +set g_motd "" +set rcon pre"mid"post
