1 #2{W:Ka1,b2
B:Kc3,Hd5 SWM:Ka1-a2}2 /* x */ #40
{FEN:8/8/8/8/8/8/8/kK5R }