//Maya ASCII 2018 scene
createNode skinCluster -n "s";
	setAttr -s 2 ".wl";
	setAttr ".wl[0:1].w"  2 0 0.5 1 0.5 1 3 1;
	setAttr ".pm[0]" -type "matrix" 1 0 0 0 0 1 0 0 0 0 1 0 0 0 0 1;
createNode dagPose -n "d";
	setAttr ".xm[0]" -type "matrix" "xform" 1 1 1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 1 0 0 0 1 1 1 1 yes;
