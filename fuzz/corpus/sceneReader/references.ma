//Maya ASCII 2018 scene
file -rdi 1 -ns "x" -rfn "xRN" -op "v=0;" -typ "mayaAscii" "C:/gone//rig.ma";
file -r -ns "x" -dr 1 -rfn "xRN" -op "v=0;" -typ "mayaAscii" "C:/gone//rig.ma{1}";
file -r -ns ":" -rfn "plainRN" "rig.ma";
file -r -rpr "Old" -rfn "OldRN" "gone.ma";
namespace -add "y";
namespace -set "y";
createNode transform -n "a";
namespace -set ":";
createNode reference -n "xRN";
	setAttr -s 3 ".phl";
	setAttr ".ed" -type "dataReferenceEdits"
		"xRN"
		"xRN" 0
		"xRN" 6
		0 "|f|hat" "|x:a" "-s -r "
		1 |x:a "n" "n" " -at \"long\""
		2 "|x:a" "translate" " -type \"double3\" 1 2 3"
		3 "x:c.output" "|x:a.rotateX" "-na"
		5 4 "xRN" "|x:a.rotateX" "xRN.placeHolderList[1]" ""
		8 "x:a" "tx";
connectAttr "y:a.tx" "xRN.phl[1]";
