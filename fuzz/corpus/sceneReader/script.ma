//Maya ASCII 2018 scene
file -rdi 1 -ns "n" -rfn "nRN" -op "v=0;" -typ "mayaAscii" "x.ma";
createNode script -n "sceneConfigurationScriptNode";
	setAttr ".b" -type "string" "playbackOptions -min 1 -max 20 -ast 1 -aet 30 ";
	setAttr ".st" 6;
createNode blendShape -n "b";
	setAttr ".aal" -type "attributeAlias" {"x","weight[0]"} ;
relationship "link" ":lightLinker1" "a" "b";
eval "quit";
