UTF-8


1 #10
{
	Description: king and queen against king: the longest win, 10 moves
	FEN: 8/8/8/5k2/8/8/1Q6/K7
	Answer:  Ka1-b1, Ka1-a2, Qb2-b1, Qb2-c1, Qb2-a2, Qb2-c2, Qb2-d2, Qb2-e2, Qb2-f2, Qb2-g2, Qb2-h2, Qb2-a3, Qb2-b3, Qb2-c3, Qb2-b4, Qb2-d4, Qb2-b5, Qb2-b6, Qb2-b7, Qb2-g7, Qb2-b8, Qb2-h8
}

2 #16 Requires R
{
	Description: king and rook against king: the longest win, 16 moves
	FEN: 8/8/8/8/8/4k3/5R2/K7
	Answer:  Rf2-f1, Rf2-a2, Rf2-f5
}

3 #28 Requires P
{
	Description: king and pawn against king: the longest win, 28 moves
	FEN: 8/8/8/1k6/8/8/K5P1/8
	Answer:  Ka2-b3
}

4 #4
{
	Description: king, queen and queen against king: the longest win, 4 moves
	FEN: 8/8/8/4k3/8/8/1K6/QQ6
	Answer:  Qa1-a3, Qa1-a4, Qa1-a5, Qa1-a6, Qa1-a7, Qa1-a8, Qb1-e1, Qb1-f1, Qb1-g1, Qb1-h1, Qb1-c2, Qb1-d3, Qb1-g6, Qb1-h7, Kb2-c1, Kb2-a2, Kb2-a3, Kb2-b3, Kb2-c3
}

5 #6
{
	Description: king, queen and rook against king: the longest win, 6 moves
	FEN: 8/2R5/3k4/8/8/7Q/8/K7
	Answer:  Qh3-h2, Qh3-c3, Qh3-g3, Qh3-d7, Qh3-h7, Qh3-c8, Rc7-c1, Rc7-c2, Rc7-c3, Rc7-c4, Rc7-a7, Rc7-b7, Rc7-d7, Rc7-f7, Rc7-g7, Rc7-h7, Rc7-c8
}

6 #8
{
	Description: king, queen and bishop against king: the longest win, 8 moves
	FEN: 8/8/5kB1/8/8/8/8/K1Q5
	Answer:  Qc1-b1, Qc1-g1, Qc1-c2, Qc1-c6, Qc1-h6, Bg6-b1, Bg6-c2, Bg6-d3, Bg6-e4, Bg6-h5, Bg6-h7, Bg6-e8
}

7 #9
{
	Description: king, queen and knight against king: the longest win, 9 moves
	FEN: 8/8/5k2/8/8/8/8/KN4Q1
	Answer:  Ka1-a2, Ka1-b2, Nb1-d2, Nb1-a3, Nb1-c3, Qg1-c1, Qg1-d1, Qg1-e1, Qg1-f1, Qg1-h1, Qg1-f2, Qg1-g2, Qg1-h2, Qg1-e3, Qg1-g3, Qg1-d4, Qg1-g4, Qg1-c5, Qg1-b6, Qg1-a7, Qg1-g8
}

8 #13
{
	Description: king and queen against king and queen: the longest win, 13 moves
	FEN: 8/8/8/8/8/8/8/1Q1K2kq
	Answer:  Kd1-e2
}

9 #35 Requires Qr
{
	Description: king and queen against king and rook: the longest win, 35 moves
	FEN: 8/8/r7/8/3k4/8/8/K1Q5
	Answer:  Ka1-b1, Ka1-b2
}

10 #17 Requires Qb
{
	Description: king and queen against king and bishop: the longest win, 17 moves
	FEN: 7Q/8/8/4b3/3k4/8/8/K7
	Answer:  Qh8-h1, Qh8-h3, Qh8-h4, Qh8-h5, Qh8-h6, Qh8-h7, Qh8-a8, Qh8-c8, Qh8-d8, Qh8-e8, Qh8-f8, Qh8-g8
}

11 #21 Requires Qn
{
	Description: king and queen against king and knight: the longest win, 21 moves
	FEN: 8/8/8/8/8/2k5/2n5/KQ6
	Answer:  Ka1-a2
}

12 #7
{
	Description: king, rook and rook against king: the longest win, 7 moves
	FEN: 8/8/8/8/4k3/3R4/8/RK6
	Answer:  Kb1-c2, Rd3-d1, Rd3-b3, Rd3-h3, Rd3-d6, Rd3-d7, Rd3-d8
}

13 #16 Requires RB
{
	Description: king, rook and bishop against king: the longest win, 16 moves
	FEN: 8/8/8/4B3/4k3/5R2/8/K7
	Answer:  Rf3-f1, Rf3-a3
}

14 #16 Requires RN
{
	Description: king, rook and knight against king: the longest win, 16 moves
	FEN: 8/8/8/3N4/4k3/5R2/8/K7
	Answer:  Rf3-f1, Rf3-a3, Rf3-e3
}

15 #19 Requires Rq
{
	Description: king and rook against king and queen: the longest win, 19 moves
	FEN: 6q1/8/8/8/7k/8/8/KR6
	Answer:  Rb1-h1
}

16 #19 Requires Rr
{
	Description: king and rook against king and rook: the longest win, 19 moves
	FEN: 6r1/8/8/8/7k/8/8/KR6
	Answer:  Rb1-h1
}

17 #29 Requires Rb
{
	Description: king and rook against king and bishop: the longest win, 29 moves
	FEN: 8/8/8/8/8/8/8/2RK1b1k
	Answer:  Kd1-e1
}

18 #40 Requires Rn
{
	Description: king and rook against king and knight: the longest win, 40 moves
	FEN: 8/2R5/8/8/7k/3K4/8/4n3
	Answer:  Kd3-e2
}

19 #19 Requires BB
{
	Description: king, bishop and bishop against king: the longest win, 19 moves
	FEN: 8/8/8/8/7B/8/3k4/K2B4
	Answer:  Bd1-b3, Bd1-f3, Bd1-a4, Bd1-g4, Bd1-h5
}

20 #33 Requires BN
{
	Description: king, bishop and knight against king: the longest win, 33 moves
	FEN: 8/8/8/8/8/6k1/7N/K1B5
	Answer:  Nh2-f1
}

21 #1
{
	Description: king and bishop against king and bishop: the longest win, 1 move
	FEN: 8/8/8/8/8/8/b1K5/k1B5
	Answer:  Bc1-b2
}

22 #1
{
	Description: king and bishop against king and knight: the longest win, 1 move
	FEN: 8/8/8/8/8/8/n1K5/k1B5
	Answer:  Bc1-b2
}

23 #1
{
	Description: king, knight and knight against king: the longest win, 1 move
	FEN: 8/8/8/2N5/8/k7/8/NK6
	Answer:  Na1-c2
}

24 #1
{
	Description: king and knight against king and rook: the longest win, 1 move
	FEN: 8/8/8/8/8/8/r2N4/k1K5
	Answer:  Nd2-b3
}

25 #1
{
	Description: king and knight against king and bishop: the longest win, 1 move
	FEN: 8/8/8/8/8/8/b7/k1K1N3
	Answer:  Ne1-c2
}

26 #1
{
	Description: king and knight against king and knight: the longest win, 1 move
	FEN: 8/8/8/8/8/8/n1K5/k1N5
	Answer:  Nc1-b3
}

27 #10
{
	Description: king, queen and pawn against king: the longest win, 10 moves
	FEN: 8/8/8/3k4/8/4P3/8/K1Q5
	Answer:  Ka1-b1, Ka1-a2, Ka1-b2, Qc1-b1, Qc1-d1, Qc1-e1, Qc1-f1, Qc1-g1, Qc1-h1, Qc1-b2, Qc1-c2, Qc1-d2, Qc1-a3, Qc1-c3, Qc1-c7, Qc1-c8, e3-e4
}

28 #28 Requires Qp
{
	Description: king and queen against king and pawn: the longest win, 28 moves
	FEN: 2QK4/8/8/8/8/8/3kp3/8
	Answer:  Qc8-d7
}

29 #16 Requires RP
{
	Description: king, rook and pawn against king: the longest win, 16 moves
	FEN: K7/8/5R2/4k3/4P3/8/8/8
	Answer:  Rf6-a6, Rf6-f8
}

30 #26 Requires Rp
{
	Description: king and rook against king and pawn: the longest win, 26 moves
	FEN: 2K5/8/8/1p6/1k6/8/R7/8
	Answer:  Ra2-a7
}

31 #31 Requires BP
{
	Description: king, bishop and pawn against king: the longest win, 31 moves
	FEN: 8/3P4/KBk5/8/8/8/8/8
	Answer:  d7-d8N
}

32 #1
{
	Description: king and bishop against king and pawn: the longest win, 1 move
	FEN: k7/p1K5/8/8/8/8/8/1B6
	Answer:  Bb1-e4
}

33 #27 Requires NP
{
	Description: king, knight and pawn against king: the longest win, 27 moves
	FEN: 8/7N/8/8/8/5k2/7P/K7
	Answer:  Nh7-f6
}

34 #7
{
	Description: king and knight against king and pawn: the longest win, 7 moves
	FEN: 8/8/8/8/8/p7/k7/1N1K4
	Answer:  Kd1-c2
}

35 #32 Requires PP
{
	Description: king, pawn and pawn against king: the longest win, 32 moves
	FEN: 8/8/8/8/8/2k3P1/6P1/K7
	Answer:  Ka1-b1
}

36 #29 Requires Pq
{
	Description: king and pawn against king and queen: the longest win, 29 moves
	FEN: 8/8/8/k7/8/q7/K5P1/8
	Answer:  Ka2:a3
}

37 #43 Requires Pr
{
	Description: king and pawn against king and rook: the longest win, 43 moves
	FEN: 8/5k2/2PK4/5r2/8/8/8/8
	Answer:  c6-c7
}

38 #29 Requires Pb
{
	Description: king and pawn against king and bishop: the longest win, 29 moves
	FEN: 8/8/8/k7/8/b7/K5P1/8
	Answer:  Ka2:a3
}

39 #29 Requires Pn
{
	Description: king and pawn against king and knight: the longest win, 29 moves
	FEN: 8/8/8/k7/8/n7/K5P1/8
	Answer:  Ka2:a3
}

40 #33 Requires Pp
{
	Description: king and pawn against king and pawn: the longest win, 33 moves
	FEN: 3K4/8/4p3/8/8/8/2P5/2k5
	Answer:  c2-c4
}
