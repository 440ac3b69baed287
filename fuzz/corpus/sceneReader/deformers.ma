//Maya ASCII 2018 scene
createNode transform -n "t";
createNode mesh -n "m" -p "t";
createNode mesh -n "orig" -p "t";
	setAttr ".gtag[0].gtagnm" -type "string" "tip";
	setAttr ".gtag[0].gtagcmp" -type "componentList" 1 "vtx[2]";
	setAttr ".uvst[0].uvsn" -type "string" "map1";
	setAttr -s 3 ".uvst[0].uvsp[0:2]" -type "float2" 0 0 1 0 0 1;
	setAttr ".clst[0].clsn" -type "string" "c";
	setAttr ".clst[0].rprt" 3;
	setAttr -s 2 ".clst[0].clsp[0:1]"  1 0 0 0 1 0;
	setAttr -s 4 ".vt[0:3]"  0 0 0 1 0 0 0 1 0 1 1 0;
	setAttr -s 5 ".ed[0:4]"  0 1 0 1 2 1 2 0 0 1 3 0 3 2 0;
	setAttr -s 4 ".n[0:3]" -type "float3"  0 0 1 1e+20 1e+20 1e+20 0 0 1 0 0 1;
	setAttr -s 2 -ch 6 ".fc[0:1]" -type "polyFaces"
		f 3 0 1 2
		mu 0 3 0 1 2
		mc 0 3 0 -1 1
		f 3 3 4 -2;
createNode mesh -n "target" -p "t";
	setAttr -s 2 ".vt[0:1]"  0 0 5 1 0 5;
createNode tweak -n "tweak1";
	setAttr ".vl[0].vt[1]" -type "float3" 0 0 1;
createNode blendShape -n "blend";
	setAttr ".w[0]" 0.5;
	setAttr ".it[0].itg[1].iti[6000].ipt" -type "pointArray" 1 0 1 0 1;
	setAttr ".it[0].itg[1].iti[6000].ict" -type "componentList" 1 "vtx[2]";
	setAttr ".w[1]" 1;
createNode cluster -n "pull";
	setAttr ".wl[0].w[1]" 0.5;
	setAttr ".ip[0].gtg" -type "string" "tip";
createNode transform -n "handle";
	setAttr ".t" -type "double3" 0 0 1;
createNode clusterHandle -n "handleShape" -p "handle";
createNode joint -n "j";
	setAttr ".r" -type "double3" 0 30 0;
createNode skinCluster -n "skin";
	setAttr -s 4 ".wl";
	setAttr ".wl[0:3].w"  1 0 1  2 0 0.5 1 0.5  0  1 0 1;
	setAttr ".pm[0]" -type "matrix" 1 0 0 0 0 1 0 0 0 0 1 0 0 -1 0 1;
	setAttr ".en" 0.75;
connectAttr "orig.w" "tweak1.ip[0].ig";
connectAttr "tweak1.og[0]" "blend.ip[0].ig";
connectAttr "target.w" "blend.it[0].itg[0].iti[6000].igt";
connectAttr "blend.og[0]" "pull.ip[0].ig";
connectAttr "handle.wm" "pull.ma";
connectAttr "handleShape.x" "pull.x";
connectAttr "pull.og[0]" "skin.ip[0].ig";
connectAttr "j.wm" "skin.ma[0]";
connectAttr "skin.og[0]" "m.i";
