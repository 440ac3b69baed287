//Maya ASCII 2018 scene
createNode transform -n "a";
	rename -uid "A-B";
	setAttr ".t" -type "double3" 1 2 3 ;
createNode mesh -n "aShape" -p "a";
	setAttr -k off ".v";
	setAttr -s 4 ".vt[0:3]"  0 0 0 1 0 0 1 1 0 0 1 0;
	setAttr -s 4 ".ed[0:3]"  0 1 0 1 2 0 2 3 1 3 0 0;
	setAttr -s 1 -ch 4 ".fc[0]" -type "polyFaces"
		f 4 0 1 2 3
		mu 0 4 0 1 2 3;
