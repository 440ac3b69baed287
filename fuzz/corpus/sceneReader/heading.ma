//Maya ASCII 2018 scene
//Codeset: 932
requires maya "2018";
currentUnit -l millimeter -a degree -t ntsc;
fileInfo "application" "maya";
