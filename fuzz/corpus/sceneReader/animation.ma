//Maya ASCII 2018 scene
createNode animCurveTL -n "c";
	setAttr ".tan" 18;
	setAttr ".wgt" no;
	setAttr -s 2 ".ktv[0:1]"  1 0 10 5;
createNode transform -n "ns:a";
connectAttr "c.o" "ns:a.tx";
select -ne :time1;
	setAttr ".o" 12;
