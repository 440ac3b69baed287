//Maya ASCII 2020 scene
//Name: walk.ma
//Last modified: Sat, Nov 21, 2026 12:00:00 PM
//Codeset: UTF-8
requires maya "2020";
currentUnit -l centimeter -a degree -t ntsc;
createNode transform -n "stage";
createNode transform -n "walker" -p "stage";
createNode joint -n "hips" -p "walker";
	setAttr ".t" -type "double3" 0 4.2 0 ;
createNode joint -n "spine" -p "hips";
	setAttr ".t" -type "double3" 0 0.6 0 ;
createNode joint -n "chest" -p "spine";
	setAttr ".t" -type "double3" 0 0.9 0 ;
createNode joint -n "neck" -p "chest";
	setAttr ".t" -type "double3" 0 1.1 0 ;
createNode joint -n "head" -p "neck";
	setAttr ".t" -type "double3" 0 0.4 0 ;
	setAttr ".ro" 2;
createNode joint -n "hair" -p "head";
	setAttr ".t" -type "double3" 0 1 -0.2 ;
createNode joint -n "arm_l" -p "chest";
	setAttr ".t" -type "double3" 0.8 0.8 0 ;
	setAttr ".jo" -type "double3" 0 0 -80 ;
createNode joint -n "elbow_l" -p "arm_l";
	setAttr ".t" -type "double3" 1.1 0 0 ;
createNode joint -n "hand_l" -p "elbow_l";
	setAttr ".t" -type "double3" 1 0 0 ;
	setAttr ".ra" -type "double3" 20 0 0 ;
createNode joint -n "arm_r" -p "chest";
	setAttr ".t" -type "double3" -0.8 0.8 0 ;
	setAttr ".jo" -type "double3" 0 0 80 ;
createNode joint -n "elbow_r" -p "arm_r";
	setAttr ".t" -type "double3" -1.1 0 0 ;
createNode joint -n "hand_r" -p "elbow_r";
	setAttr ".t" -type "double3" -1 0 0 ;
	setAttr ".ra" -type "double3" -20 0 0 ;
createNode joint -n "leg_l" -p "hips";
	setAttr ".t" -type "double3" 0.45 -0.2 0 ;
createNode joint -n "knee_l" -p "leg_l";
	setAttr ".t" -type "double3" 0 -1.9 0 ;
createNode joint -n "foot_l" -p "knee_l";
	setAttr ".t" -type "double3" 0 -1.8 0 ;
createNode joint -n "toe_l" -p "foot_l";
	setAttr ".t" -type "double3" 0 -0.2 0.5 ;
createNode joint -n "leg_r" -p "hips";
	setAttr ".t" -type "double3" -0.45 -0.2 0 ;
createNode joint -n "knee_r" -p "leg_r";
	setAttr ".t" -type "double3" 0 -1.9 0 ;
createNode joint -n "foot_r" -p "knee_r";
	setAttr ".t" -type "double3" 0 -1.8 0 ;
createNode joint -n "toe_r" -p "foot_r";
	setAttr ".t" -type "double3" 0 -0.2 0.5 ;
createNode transform -n "belly" -p "hips";
createNode mesh -n "bellyShape" -p "belly";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.6 -0.3 -0.35 0.6 -0.3 -0.35 -0.6 1.2 -0.35 0.6 1.2 -0.35 -0.6 -0.3 0.35 0.6 -0.3 0.35 -0.6 1.2 0.35 0.6 1.2 0.35;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "coat" -p "chest";
createNode mesh -n "coatShape" -p "coat";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.75 -0.6 -0.45 0.75 -0.6 -0.45 -0.75 1 -0.45 0.75 1 -0.45 -0.75 -0.6 0.45 0.75 -0.6 0.45 -0.75 1 0.45 0.75 1 0.45;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "skull" -p "head";
createNode mesh -n "skullShape" -p "skull";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.5 0 -0.5 0.5 0 -0.5 -0.5 1 -0.5 0.5 1 -0.5 -0.5 0 0.5 0.5 0 0.5 -0.5 1 0.5 0.5 1 0.5;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "eyes" -p "head";
createNode mesh -n "eyesShape" -p "eyes";
	setAttr -k off ".v";
	setAttr ".uvst[0].uvsn" -type "string" "map1";
	setAttr -s 4 ".uvst[0].uvsp[0:3]" -type "float2" 0 0 1 0 1 1 0 1;
	setAttr ".cuvs" -type "string" "map1";
	setAttr -s 4 ".vt[0:3]"  -0.5 0.4 0.51 0.5 0.4 0.51 0.5 0.9 0.51 -0.5 0.9 0.51;
	setAttr -s 4 ".ed[0:3]"  0 1 0 1 2 0 2 3 0 3 0 0;
	setAttr -s 1 -ch 4 ".fc[0:0]" -type "polyFaces" 
		f 4 0 1 2 3
		mu 0 4 0 1 2 3;
createNode transform -n "plume" -p "hair";
createNode mesh -n "plumeShape" -p "plume";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.1 0 -0.3 0.1 0 -0.3 -0.1 0.9 -0.3 0.1 0.9 -0.3 -0.1 0 0 0.1 0 0 -0.1 0.9 0 0.1 0.9 0;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "sleeve_l" -p "arm_l";
createNode mesh -n "sleeve_lShape" -p "sleeve_l";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  0 -0.2 -0.2 1.1 -0.2 -0.2 0 0.2 -0.2 1.1 0.2 -0.2 0 -0.2 0.2 1.1 -0.2 0.2 0 0.2 0.2 1.1 0.2 0.2;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "wrist_l" -p "elbow_l";
createNode mesh -n "wrist_lShape" -p "wrist_l";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  0 -0.15 -0.15 1 -0.15 -0.15 0 0.15 -0.15 1 0.15 -0.15 0 -0.15 0.15 1 -0.15 0.15 0 0.15 0.15 1 0.15 0.15;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "thigh_l" -p "leg_l";
createNode mesh -n "thigh_lShape" -p "thigh_l";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.25 -1.9 -0.25 0.25 -1.9 -0.25 -0.25 0.1 -0.25 0.25 0.1 -0.25 -0.25 -1.9 0.25 0.25 -1.9 0.25 -0.25 0.1 0.25 0.25 0.1 0.25;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "shin_l" -p "knee_l";
createNode mesh -n "shin_lShape" -p "shin_l";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.2 -1.8 -0.2 0.2 -1.8 -0.2 -0.2 0 -0.2 0.2 0 -0.2 -0.2 -1.8 0.2 0.2 -1.8 0.2 -0.2 0 0.2 0.2 0 0.2;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "shoe_l" -p "foot_l";
createNode mesh -n "shoe_lShape" -p "shoe_l";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.22 -0.3 -0.3 0.22 -0.3 -0.3 -0.22 0 -0.3 0.22 0 -0.3 -0.22 -0.3 0.5 0.22 -0.3 0.5 -0.22 0 0.5 0.22 0 0.5;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "tip_l" -p "toe_l";
createNode mesh -n "tip_lShape" -p "tip_l";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.22 -0.1 0 0.22 -0.1 0 -0.22 0.15 0 0.22 0.15 0 -0.22 -0.1 0.35 0.22 -0.1 0.35 -0.22 0.15 0.35 0.22 0.15 0.35;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "sleeve_r" -p "arm_r";
createNode mesh -n "sleeve_rShape" -p "sleeve_r";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -1.1 -0.2 -0.2 0 -0.2 -0.2 -1.1 0.2 -0.2 0 0.2 -0.2 -1.1 -0.2 0.2 0 -0.2 0.2 -1.1 0.2 0.2 0 0.2 0.2;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "wrist_r" -p "elbow_r";
createNode mesh -n "wrist_rShape" -p "wrist_r";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -1 -0.15 -0.15 0 -0.15 -0.15 -1 0.15 -0.15 0 0.15 -0.15 -1 -0.15 0.15 0 -0.15 0.15 -1 0.15 0.15 0 0.15 0.15;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "thigh_r" -p "leg_r";
createNode mesh -n "thigh_rShape" -p "thigh_r";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.25 -1.9 -0.25 0.25 -1.9 -0.25 -0.25 0.1 -0.25 0.25 0.1 -0.25 -0.25 -1.9 0.25 0.25 -1.9 0.25 -0.25 0.1 0.25 0.25 0.1 0.25;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "shin_r" -p "knee_r";
createNode mesh -n "shin_rShape" -p "shin_r";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.2 -1.8 -0.2 0.2 -1.8 -0.2 -0.2 0 -0.2 0.2 0 -0.2 -0.2 -1.8 0.2 0.2 -1.8 0.2 -0.2 0 0.2 0.2 0 0.2;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "shoe_r" -p "foot_r";
createNode mesh -n "shoe_rShape" -p "shoe_r";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.22 -0.3 -0.3 0.22 -0.3 -0.3 -0.22 0 -0.3 0.22 0 -0.3 -0.22 -0.3 0.5 0.22 -0.3 0.5 -0.22 0 0.5 0.22 0 0.5;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "tip_r" -p "toe_r";
createNode mesh -n "tip_rShape" -p "tip_r";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  -0.22 -0.1 0 0.22 -0.1 0 -0.22 0.15 0 0.22 0.15 0 -0.22 -0.1 0.35 0.22 -0.1 0.35 -0.22 0.15 0.35 0.22 0.15 0.35;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "lantern" -p "hand_l";
createNode mesh -n "lanternShape" -p "lantern";
	setAttr -k off ".v";
	setAttr -s 8 ".vt[0:7]"  0.1 -0.2 -0.2 0.5 -0.2 -0.2 0.1 0.2 -0.2 0.5 0.2 -0.2 0.1 -0.2 0.2 0.5 -0.2 0.2 0.1 0.2 0.2 0.5 0.2 0.2;
	setAttr -s 12 ".ed[0:11]"  4 5 0 5 7 0 7 6 0 6 4 0 1 0 0 0 2 0 2 3 0 3 1 0 5 1 0 3 7 0 0 4 0 6 2 0;
	setAttr -s 6 -ch 24 ".fc[0:5]" -type "polyFaces" 
		f 4 0 1 2 3
		f 4 4 5 6 7
		f 4 8 -8 9 -2
		f 4 10 -4 11 -6
		f 4 -3 -10 -7 -12
		f 4 -5 -9 -1 -11;
createNode transform -n "pond" -p "stage";
createNode mesh -n "pondShape" -p "pond";
	setAttr -k off ".v";
	setAttr ".uvst[0].uvsn" -type "string" "map1";
	setAttr -s 4 ".uvst[0].uvsp[0:3]" -type "float2" 0 0 1 0 1 1 0 1;
	setAttr ".cuvs" -type "string" "map1";
	setAttr -s 4 ".vt[0:3]"  -5 0 8 5 0 8 5 0 -2 -5 0 -2;
	setAttr -s 4 ".ed[0:3]"  0 1 0 1 2 0 2 3 0 3 0 0;
	setAttr -s 1 -ch 4 ".fc[0:0]" -type "polyFaces" 
		f 4 0 1 2 3
		mu 0 4 0 1 2 3;
createNode lambert -n "coat_mat";
	setAttr ".dc" 1;
	setAttr ".c" -type "float3" 0.2 0.3 0.6 ;
createNode shadingEngine -n "coat_matSG";
	setAttr ".ihi" 0;
	setAttr ".ro" yes;
createNode lambert -n "skin_mat";
	setAttr ".dc" 1;
	setAttr ".c" -type "float3" 0.9 0.7 0.55 ;
createNode shadingEngine -n "skin_matSG";
	setAttr ".ihi" 0;
	setAttr ".ro" yes;
createNode lambert -n "eyes_mat";
	setAttr ".dc" 1;
	setAttr ".c" -type "float3" 1 1 1 ;
createNode shadingEngine -n "eyes_matSG";
	setAttr ".ihi" 0;
	setAttr ".ro" yes;
createNode lambert -n "lantern_mat";
	setAttr ".dc" 1;
	setAttr ".c" -type "float3" 0.9 0.6 0.1 ;
	setAttr ".ic" -type "float3" 0.5 0.3 0 ;
createNode shadingEngine -n "lantern_matSG";
	setAttr ".ihi" 0;
	setAttr ".ro" yes;
createNode lambert -n "pond_mat";
	setAttr ".dc" 1;
	setAttr ".c" -type "float3" 1 1 1 ;
createNode shadingEngine -n "pond_matSG";
	setAttr ".ihi" 0;
	setAttr ".ro" yes;
createNode file -n "eyes_file";
	setAttr ".ftn" -type "string" "sourceimages/eyes.1.tga";
	setAttr ".ufe" yes;
createNode place2dTexture -n "eyes_place";
createNode file -n "pond_file";
	setAttr ".ftn" -type "string" "sourceimages/pond.tga";
createNode place2dTexture -n "pond_place";
	setAttr ".re" -type "float2" 2 2 ;
createNode animCurveTL -n "walker_tz";
	setAttr ".tan" 2;
	setAttr ".wgt" no;
	setAttr -s 2 ".ktv[0:1]"  1 0 61 6;
createNode animCurveTL -n "hips_ty";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 4.08 8.5 4.2 16 4.08 23.5 4.2 31 4.08 38.5 4.2 46 4.08 53.5 4.2 61 4.08;
createNode animCurveTA -n "hips_ry";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 8 8.5 0 16 -8 23.5 0 31 8 38.5 0 46 -8 53.5 0 61 8;
createNode animCurveTA -n "hips_rz";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 0 8.5 3 16 0 23.5 -3 31 0 38.5 3 46 0 53.5 -3 61 0;
createNode animCurveTA -n "spine_ry";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 -6 8.5 0 16 6 23.5 0 31 -6 38.5 0 46 6 53.5 0 61 -6;
createNode animCurveTA -n "chest_ry";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 -8 8.5 0 16 8 23.5 0 31 -8 38.5 0 46 8 53.5 0 61 -8;
createNode animCurveTA -n "chest_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 3 8.5 1 16 3 23.5 1 31 3 38.5 1 46 3 53.5 1 61 3;
createNode animCurveTU -n "chest_sx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 3 ".ktv[0:2]"  1 1 31 1.06 61 1;
createNode animCurveTU -n "chest_sz";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 3 ".ktv[0:2]"  1 1 31 1.1 61 1;
createNode animCurveTA -n "neck_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 2 ".ktv[0:1]"  1 -3 61 -3;
createNode animCurveTA -n "head_ry";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 4 ".ktv[0:3]"  1 0 20 25 40 -20 61 0;
createNode animCurveTA -n "head_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 2 8.5 -2 16 2 23.5 -2 31 2 38.5 -2 46 2 53.5 -2 61 2;
createNode animCurveTA -n "hair_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 -10 8.5 5 16 -10 23.5 5 31 -10 38.5 5 46 -10 53.5 5 61 -10;
createNode animCurveTA -n "leg_l_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 -30 8.5 0 16 30 23.5 0 31 -30 38.5 0 46 30 53.5 0 61 -30;
createNode animCurveTA -n "knee_l_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 5 8.5 12 16 20 23.5 60 31 5 38.5 12 46 20 53.5 60 61 5;
createNode animCurveTA -n "foot_l_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 -12 8.5 0 16 15 23.5 -5 31 -12 38.5 0 46 15 53.5 -5 61 -12;
createNode animCurveTA -n "toe_l_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 -10 8.5 0 16 -30 23.5 0 31 -10 38.5 0 46 -30 53.5 0 61 -10;
createNode animCurveTA -n "arm_l_ry";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 30 8.5 0 16 -30 23.5 0 31 30 38.5 0 46 -30 53.5 0 61 30;
createNode animCurveTA -n "elbow_l_ry";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 -10 8.5 -20 16 -35 23.5 -20 31 -10 38.5 -20 46 -35 53.5 -20 61 -10;
createNode animCurveTA -n "hand_l_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 5 8.5 0 16 -5 23.5 0 31 5 38.5 0 46 -5 53.5 0 61 5;
createNode animCurveTA -n "leg_r_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 30 8.5 0 16 -30 23.5 0 31 30 38.5 0 46 -30 53.5 0 61 30;
createNode animCurveTA -n "knee_r_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 20 8.5 60 16 5 23.5 12 31 20 38.5 60 46 5 53.5 12 61 20;
createNode animCurveTA -n "foot_r_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 15 8.5 -5 16 -12 23.5 0 31 15 38.5 -5 46 -12 53.5 0 61 15;
createNode animCurveTA -n "toe_r_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 -30 8.5 0 16 -10 23.5 0 31 -30 38.5 0 46 -10 53.5 0 61 -30;
createNode animCurveTA -n "arm_r_ry";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 -30 8.5 0 16 30 23.5 0 31 -30 38.5 0 46 30 53.5 0 61 -30;
createNode animCurveTA -n "elbow_r_ry";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 10 8.5 20 16 35 23.5 20 31 10 38.5 20 46 35 53.5 20 61 10;
createNode animCurveTA -n "hand_r_rx";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 5 8.5 0 16 -5 23.5 0 31 5 38.5 0 46 -5 53.5 0 61 5;
createNode animCurveTU -n "lantern_v";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 5 ".ktv[0:4]"  1 1 25 0 33 1 36 0 40 1;
	setAttr -s 5 ".kot[0:4]"  5 5 5 5 5;
createNode animCurveTU -n "eyes_file_fe";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 9 ".ktv[0:8]"  1 1 18 2 19 3 21 2 22 1 47 2 48 3 50 2 51 1;
	setAttr -s 9 ".kot[0:8]"  5 5 5 5 5 5 5 5 5;
createNode animCurveTU -n "pond_place_tfv";
	setAttr ".tan" 2;
	setAttr ".wgt" no;
	setAttr -s 2 ".ktv[0:1]"  1 0 61 2;
createNode animCurveTU -n "coat_mat_cr";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 3 ".ktv[0:2]"  1 0.2 30 0.8 60 0.2;
createNode animCurveTU -n "coat_mat_cb";
	setAttr ".tan" 9;
	setAttr ".wgt" no;
	setAttr -s 3 ".ktv[0:2]"  1 0.6 30 0.1 60 0.6;
createNode animCurveTU -n "lantern_mat_ir";
	setAttr ".tan" 2;
	setAttr ".wgt" no;
	setAttr -s 3 ".ktv[0:2]"  1 0.5 24 0.9 60 0.5;
createNode script -n "sceneConfigurationScriptNode";
	setAttr ".b" -type "string" "playbackOptions -min 1 -max 60 -ast 1 -aet 60 ";
	setAttr ".st" 6;
select -ne :time1;
	setAttr ".o" 1;
	setAttr ".unw" 1;
connectAttr "hips.s" "spine.is";
connectAttr "spine.s" "chest.is";
connectAttr "chest.s" "neck.is";
connectAttr "neck.s" "head.is";
connectAttr "head.s" "hair.is";
connectAttr "chest.s" "arm_l.is";
connectAttr "arm_l.s" "elbow_l.is";
connectAttr "elbow_l.s" "hand_l.is";
connectAttr "chest.s" "arm_r.is";
connectAttr "arm_r.s" "elbow_r.is";
connectAttr "elbow_r.s" "hand_r.is";
connectAttr "hips.s" "leg_l.is";
connectAttr "leg_l.s" "knee_l.is";
connectAttr "knee_l.s" "foot_l.is";
connectAttr "foot_l.s" "toe_l.is";
connectAttr "hips.s" "leg_r.is";
connectAttr "leg_r.s" "knee_r.is";
connectAttr "knee_r.s" "foot_r.is";
connectAttr "foot_r.s" "toe_r.is";
connectAttr "bellyShape.iog" "coat_matSG.dsm" -na;
connectAttr "coatShape.iog" "coat_matSG.dsm" -na;
connectAttr "skullShape.iog" "skin_matSG.dsm" -na;
connectAttr "eyesShape.iog" "eyes_matSG.dsm" -na;
connectAttr "plumeShape.iog" "skin_matSG.dsm" -na;
connectAttr "sleeve_lShape.iog" "coat_matSG.dsm" -na;
connectAttr "wrist_lShape.iog" "skin_matSG.dsm" -na;
connectAttr "thigh_lShape.iog" "coat_matSG.dsm" -na;
connectAttr "shin_lShape.iog" "skin_matSG.dsm" -na;
connectAttr "shoe_lShape.iog" "coat_matSG.dsm" -na;
connectAttr "tip_lShape.iog" "coat_matSG.dsm" -na;
connectAttr "sleeve_rShape.iog" "coat_matSG.dsm" -na;
connectAttr "wrist_rShape.iog" "skin_matSG.dsm" -na;
connectAttr "thigh_rShape.iog" "coat_matSG.dsm" -na;
connectAttr "shin_rShape.iog" "skin_matSG.dsm" -na;
connectAttr "shoe_rShape.iog" "coat_matSG.dsm" -na;
connectAttr "tip_rShape.iog" "coat_matSG.dsm" -na;
connectAttr "lanternShape.iog" "lantern_matSG.dsm" -na;
connectAttr "pondShape.iog" "pond_matSG.dsm" -na;
connectAttr "coat_mat.oc" "coat_matSG.ss";
connectAttr "coat_matSG.pa" ":renderPartition.st" -na;
connectAttr "coat_mat.msg" ":defaultShaderList1.s" -na;
connectAttr "skin_mat.oc" "skin_matSG.ss";
connectAttr "skin_matSG.pa" ":renderPartition.st" -na;
connectAttr "skin_mat.msg" ":defaultShaderList1.s" -na;
connectAttr "eyes_mat.oc" "eyes_matSG.ss";
connectAttr "eyes_matSG.pa" ":renderPartition.st" -na;
connectAttr "eyes_mat.msg" ":defaultShaderList1.s" -na;
connectAttr "lantern_mat.oc" "lantern_matSG.ss";
connectAttr "lantern_matSG.pa" ":renderPartition.st" -na;
connectAttr "lantern_mat.msg" ":defaultShaderList1.s" -na;
connectAttr "pond_mat.oc" "pond_matSG.ss";
connectAttr "pond_matSG.pa" ":renderPartition.st" -na;
connectAttr "pond_mat.msg" ":defaultShaderList1.s" -na;
connectAttr "eyes_file.oc" "eyes_mat.c";
connectAttr "eyes_place.c" "eyes_file.c";
connectAttr "eyes_place.tf" "eyes_file.tf";
connectAttr "eyes_place.rf" "eyes_file.rf";
connectAttr "eyes_place.mu" "eyes_file.mu";
connectAttr "eyes_place.mv" "eyes_file.mv";
connectAttr "eyes_place.s" "eyes_file.s";
connectAttr "eyes_place.wu" "eyes_file.wu";
connectAttr "eyes_place.wv" "eyes_file.wv";
connectAttr "eyes_place.re" "eyes_file.re";
connectAttr "eyes_place.of" "eyes_file.of";
connectAttr "eyes_place.n" "eyes_file.n";
connectAttr "eyes_place.vt1" "eyes_file.vt1";
connectAttr "eyes_place.vt2" "eyes_file.vt2";
connectAttr "eyes_place.vt3" "eyes_file.vt3";
connectAttr "eyes_place.vc1" "eyes_file.vc1";
connectAttr "eyes_place.r" "eyes_file.ro";
connectAttr "eyes_place.o" "eyes_file.uv";
connectAttr "eyes_place.ofs" "eyes_file.fs";
connectAttr "eyes_file.msg" ":defaultTextureList1.tx" -na;
connectAttr "eyes_place.msg" ":defaultRenderUtilityList1.u" -na;
connectAttr "pond_file.oc" "pond_mat.c";
connectAttr "pond_place.c" "pond_file.c";
connectAttr "pond_place.tf" "pond_file.tf";
connectAttr "pond_place.rf" "pond_file.rf";
connectAttr "pond_place.mu" "pond_file.mu";
connectAttr "pond_place.mv" "pond_file.mv";
connectAttr "pond_place.s" "pond_file.s";
connectAttr "pond_place.wu" "pond_file.wu";
connectAttr "pond_place.wv" "pond_file.wv";
connectAttr "pond_place.re" "pond_file.re";
connectAttr "pond_place.of" "pond_file.of";
connectAttr "pond_place.n" "pond_file.n";
connectAttr "pond_place.vt1" "pond_file.vt1";
connectAttr "pond_place.vt2" "pond_file.vt2";
connectAttr "pond_place.vt3" "pond_file.vt3";
connectAttr "pond_place.vc1" "pond_file.vc1";
connectAttr "pond_place.r" "pond_file.ro";
connectAttr "pond_place.o" "pond_file.uv";
connectAttr "pond_place.ofs" "pond_file.fs";
connectAttr "pond_file.msg" ":defaultTextureList1.tx" -na;
connectAttr "pond_place.msg" ":defaultRenderUtilityList1.u" -na;
connectAttr "walker_tz.o" "walker.tz";
connectAttr "hips_ty.o" "hips.ty";
connectAttr "hips_ry.o" "hips.ry";
connectAttr "hips_rz.o" "hips.rz";
connectAttr "spine_ry.o" "spine.ry";
connectAttr "chest_ry.o" "chest.ry";
connectAttr "chest_rx.o" "chest.rx";
connectAttr "chest_sx.o" "chest.sx";
connectAttr "chest_sz.o" "chest.sz";
connectAttr "neck_rx.o" "neck.rx";
connectAttr "head_ry.o" "head.ry";
connectAttr "head_rx.o" "head.rx";
connectAttr "hair_rx.o" "hair.rx";
connectAttr "leg_l_rx.o" "leg_l.rx";
connectAttr "knee_l_rx.o" "knee_l.rx";
connectAttr "foot_l_rx.o" "foot_l.rx";
connectAttr "toe_l_rx.o" "toe_l.rx";
connectAttr "arm_l_ry.o" "arm_l.ry";
connectAttr "elbow_l_ry.o" "elbow_l.ry";
connectAttr "hand_l_rx.o" "hand_l.rx";
connectAttr "leg_r_rx.o" "leg_r.rx";
connectAttr "knee_r_rx.o" "knee_r.rx";
connectAttr "foot_r_rx.o" "foot_r.rx";
connectAttr "toe_r_rx.o" "toe_r.rx";
connectAttr "arm_r_ry.o" "arm_r.ry";
connectAttr "elbow_r_ry.o" "elbow_r.ry";
connectAttr "hand_r_rx.o" "hand_r.rx";
connectAttr "lantern_v.o" "lantern.v";
connectAttr "eyes_file_fe.o" "eyes_file.fe";
connectAttr "pond_place_tfv.o" "pond_place.tfv";
connectAttr "coat_mat_cr.o" "coat_mat.cr";
connectAttr "coat_mat_cb.o" "coat_mat.cb";
connectAttr "lantern_mat_ir.o" "lantern_mat.ir";
// End of walk.ma
