//Maya ASCII 2018 scene
createNode transform -n "a";
createNode mesh -n "s" -p "a";
createNode transform -n "b";
parent -s -nc -r -add "|a|s" "b" ;
connectAttr "|a|s.iog" ":initialShadingGroup.dsm" -na;
connectAttr "|b|s.iog" ":initialShadingGroup.dsm" -na;
disconnectAttr "|b|s.iog" ":initialShadingGroup.dsm" -na;
