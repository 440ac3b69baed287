//Maya ASCII 2018 scene
createNode transform -n "a";
addAttr -ci true -sn "col" -ln "colour" -at "float3" -nc 3;
addAttr -ln "r" -at "float" -p "colour";
addAttr -ln "k" -dv 1 -min 0 -max 2 -en "A:B=5" -at "enum";
addAttr -m -im false -ln "m" -dt "string";
	setAttr ".m[0:1]" -type "string" "a" ("b" + "c");
	setAttr -l on ".k" 1;
