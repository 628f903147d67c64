UTF-8


1 #2
//#TAGS
//#Miniature
//#Sacrifice
//#Zugzwang
{
	Description: Paul Morphy, New York Clipper, 1856: the rook offers itself, and every move of Black lets a mate in
	FEN: kbK5/pp6/1P6/8/8/8/8/R7
	Answer:  Ra1-a6
}

2 #2
//#TAGS
//#Miniature
//#Zugzwang
{
	Description: Tarnwick, own position: the black queen is pinned; when the last pawn is stopped, she or her king has to move
	FEN: 8/k1K2N1p/q7/8/8/8/8/R3R3
	Answer:  Nf7-h6
}

3 #2
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: four men, and four fields from which the queen mates
	FEN: 2k1n3/8/2K5/8/5Q2/8/8/8
	Answer:  Qf4-f7
}

4 #2
//#TAGS
//#Miniature
//#Zugzwang
{
	Description: Tarnwick, own position: the bishop hides behind the queen; five flights are answered by three mates
	FEN: 8/2K5/6k1/8/8/4Q3/BB6/8
	Answer:  Bb2-c1
}

5 #2
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the pinned rook is taken with mate on every field of its file
	FEN: 7k/8/8/7r/8/8/7R/2Q1K2R
	Answer:  Qc1-g5
}

6 #2
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the queen goes along the edge; queen, rook and bishop all mate
	FEN: 2Q5/6pk/8/3n4/6R1/1B4K1/8/8
	Answer:  Qc8-f8
}

7 #2
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the queen steps in front of the bishop and has three mates
	FEN: 3Q4/3P2rk/6p1/8/8/2B4K/8/8
	Answer:  Qd8-f6
}

8 #2
//#TAGS
//#Meredith
//#Zugzwang
{
	Description: Tarnwick, own position: White only waits; Black has three moves, each with its own mate
	FEN: 4B3/8/5pr1/7k/7P/1R6/8/2K4Q
	Answer:  Qh1-g2
}

9 #2
//#TAGS
//#Meredith
//#Zugzwang
{
	Description: Tarnwick, own position: a waiting move of the rook; four black moves, four mates
	FEN: 3Q4/4p3/2p1kN2/8/R7/8/7B/6K1
	Answer:  Ra4-f4
}

10 #2
//#TAGS
//#Meredith
{
	Description: Tarnwick, own position: the knight makes room, and the queen mates from four fields
	FEN: 3K4/6Q1/2pk4/1p4P1/2bN4/8/2N5/8
	Answer:  Nd4-f3
}

11 #2
//#TAGS
//#Meredith
{
	Description: Tarnwick, own position: the double step of a pawn prepares four mates, two of them by the pawn itself
	FEN: 4K3/1bN5/3k4/1P2p3/8/2R5/5P1B/8
	Answer:  f2-f4
}

12 #2
//#TAGS
//#Miniature
//#Promotion
{
	Description: Tarnwick, own position: the pawn becomes a knight, and gives no check
	FEN: 6k1/Q3P1p1/4K3/8/8/8/8/8
	Answer:  e7-e8N
}

13 #2
//#TAGS
//#Meredith
//#Promotion
{
	Description: Tarnwick, own position: a knight once more, and again without check; queen and rooks mate
	FEN: 8/4P2R/8/1K3pkp/8/5Q2/8/1R6
	Answer:  e7-e8N
}

14 #2
//#TAGS
//#Miniature
//#Promotion
//#Zugzwang
{
	Description: Tarnwick, own position: four men: the pawn becomes a rook, since a queen would be stalemate
	FEN: 4K3/6P1/5k2/7R/8/8/8/8
	Answer:  g7-g8R
}

15 #2
//#TAGS
//#Castling
//#Meredith
{
	Description: Tarnwick, own position: castling protects the knight, and the queen mates
	FEN: 8/8/4QNk1/8/6p1/8/7P/n1B1K2R
	Answer:  0-0
}

16 #2
//#TAGS
//#Castling
//#Miniature
{
	Description: Tarnwick, own position: a quiet move of the queen, then castling is mate
	FEN: 8/5n2/5Q2/8/8/8/8/1k2K2R
	Answer:  Qf6-f2
}

17 #2
//#TAGS
//#En passant
//#Miniature
{
	Description: Tarnwick, own position: the key pawn may be taken en passant; the rook takes back with mate
	FEN: 6QK/8/7k/8/4n1p1/2R5/7P/8
	Answer:  h2-h4
}

18 #2
//#TAGS
//#En passant
//#Meredith
{
	Description: Tarnwick, own position: one double step of Black is answered by an en passant capture with mate
	FEN: b7/2pR1K2/1B6/3P4/7R/2pk4/Q7/8
	Answer:  Qa2-f2
}

19 #3
//#TAGS
//#Miniature
//#Zugzwang
{
	Description: Tarnwick, own position: four men: the rook cuts the black king off and waits
	FEN: 8/5K2/8/6k1/7R/6P1/8/8
	Answer:  Rh4-f4
}

20 #3
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: a quiet move of the queen against the bare king
	FEN: 8/8/8/2k5/4Q3/8/4K3/1R6
	Answer:  Qe4-g6
}

21 #3
//#TAGS
//#Miniature
//#Zugzwang
{
	Description: Tarnwick, own position: the queen waits at the edge, and the white king answers each of three moves differently
	FEN: 8/8/Q7/8/4Kp2/8/8/4k3
	Answer:  Qa6-a2
}

22 #3
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: three moves of the black king, three different answers without check
	FEN: 8/8/8/8/Q2K4/1p6/3k4/3B4
	Answer:  Bd1-f3
}

23 #3
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the bishop has five ways to meet the threat on g8, all in vain
	FEN: k7/8/1K5b/7N/8/1R6/8/8
	Answer:  Rb3-g3
}

24 #3
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the rook leaves the middle of the fight and goes to the b-file
	FEN: 4RQ2/4r3/8/3N4/k7/8/8/5K2
	Answer:  Re8-b8
}

25 #3
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the queen threatens c8, and the black knight can only delay her
	FEN: 3k2N1/1K3p2/8/3n4/8/8/1Q6/8
	Answer:  Qb2-c2
}

26 #3
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: five moves of the black rook delay the mate on g8, and each loses the rook
	FEN: 3k4/8/8/8/8/4QK2/Pr6/6R1
	Answer:  Qe3-a7
}

27 #3
//#TAGS
//#Castling
//#Miniature
{
	Description: Tarnwick, own position: castling long brings the last rook into play
	FEN: 8/7R/8/4Pk2/8/4Q3/P7/R3K3
	Answer:  0-0-0
}

28 #3
//#TAGS
//#Miniature
//#Zugzwang
{
	Description: Tarnwick, own position: the king gives up castling, and the pawn may promote in eight ways
	FEN: 8/8/5N2/8/8/8/6pk/R3KR2
	Answer:  Ke1-f2
}

29 #3
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the rook may be taken: then the pawn on d7 promotes
	FEN: 8/k2P4/4K3/8/1p6/2R5/P7/Q7
	Answer:  Qa1-b1
}

30 #3
//#TAGS
//#Meredith
{
	Description: Tarnwick, own position: the knight goes to the middle; rook and bishop share the second moves
	FEN: 1K5n/8/7R/1p6/k7/4N3/4BR2/8
	Answer:  Ne3-d5
}

31 #3
//#TAGS
//#Meredith
//#Zugzwang
{
	Description: Tarnwick, own position: four black moves, and four different second moves against them
	FEN: 2k5/3N4/1p6/3Q4/2p5/8/1P6/2K2B2
	Answer:  Qd5-d6
}

32 #4
//#TAGS
//#Miniature
//#Zugzwang
{
	Description: Tarnwick, own position: the white king steps up, and Black has no move that keeps everything
	FEN: 8/8/8/2p3R1/8/8/3K4/1k6
	Answer:  Kd2-c3
}

33 #4
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: queen and king against a pawn that is one step too slow
	FEN: 8/7Q/8/K7/8/1p6/8/k7
	Answer:  Ka5-b4
}

34 #4
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the white king goes straight at the black one, who has no room left
	FEN: 6R1/8/8/8/2p5/8/k7/3K4
	Answer:  Kd1-c2
}

35 #4
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the king leaves the file of his rook; the bishop fights alone
	FEN: k7/8/1K3N2/8/8/1R6/8/2b5
	Answer:  Kb6-a6
}

36 #4
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the king stops the pawn, and the queen goes round by the a-file
	FEN: 2k5/2p1b3/8/3K4/8/8/8/1Q6
	Answer:  Kd5-c6
}

37 #4
//#TAGS
//#Miniature
//#Zugzwang
{
	Description: Tarnwick, own position: the queen leaves the bishop's line alone and puts Black in zugzwang
	FEN: 2B5/1K2Q3/2p5/1k6/8/8/8/8
	Answer:  Qe7-e4
}

38 #4
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: queen and rook take the last two ranks; the black rook gives itself up to gain time
	FEN: 8/4k3/8/8/5Q2/5K2/Pr6/6R1
	Answer:  Qf4-h6
}

39 #4
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the knight leaves his pawn to the black king
	FEN: 4RQ2/4r3/8/8/8/k1N5/P7/5K2
	Answer:  Nc3-d5
}

40 #5
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the black king is shut in at the edge, and only his pawns can move
	FEN: 8/3p2p1/8/8/5K1k/N6B/8/8
	Answer:  Bh3-g4
}

41 #5
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the bishop shuts the corner, and the pawn goes to queen
	FEN: 8/8/8/1PB5/2P5/2K5/3P4/1k6
	Answer:  Bc5-a3
}

42 #5
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: Black may have his queen: she comes too late
	FEN: 5k2/8/6K1/5P2/8/3R4/7p/8
	Answer:  f5-f6
}

43 #5
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: a pawn promotes, and another pawn mates
	FEN: 8/p7/4P3/8/4N1k1/6P1/6K1/8
	Answer:  e6-e7
}

44 #5
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: king and knight keep the black king at home while the pawn runs
	FEN: 5k2/7p/3N1K2/2P5/8/8/8/8
	Answer:  c5-c6
}

45 #5
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the rook holds the seventh rank, the king does the work
	FEN: 1k6/5R2/4p3/4P3/3K4/8/8/8
	Answer:  Kd4-c5
}

46 #5
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: four men: the pawn promotes, and the king comes back to help
	FEN: k3K3/8/3P4/8/N7/8/8/8
	Answer:  d6-d7
}

47 #6
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the king protects the field on which his pawn will promote
	FEN: 8/p3p1Pk/4K3/8/8/8/8/8
	Answer:  Ke6-f7
}

48 #6
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: king, knight and pawn against the bare king, who may not come near the pawn
	FEN: 3Nk3/8/4K3/1P6/8/8/8/8
	Answer:  Nd8-f7
}

49 #6
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: neither bishop nor pawn can stop the white pawn
	FEN: k7/2K5/7P/3p4/8/8/4b3/8
	Answer:  h6-h7
}

50 #6
//#TAGS
//#Miniature
//#Zugzwang
{
	Description: Tarnwick, own position: the rook stands still until the last move
	FEN: k7/6R1/4p3/8/4K3/8/8/8
	Answer:  Ke4-e5
}

51 #6
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: first the king comes near, then the rook comes round
	FEN: 4R3/8/5p2/5P2/7K/8/6k1/8
	Answer:  Kh4-g4
}

52 #7
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the king holds his opponent in the corner, and the pawn on the other side runs
	FEN: 8/8/8/1p4P1/1P6/1K6/8/k7
	Answer:  Kb3-c2
}

53 #7
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the pawn goes all the way from h2 while the black king has two fields
	FEN: 8/k2K4/3p4/1p1P4/1P6/8/7P/8
	Answer:  Kd7-c7
}

54 #7
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the king has to let the black one out, or it is stalemate
	FEN: 7k/5K1p/7p/7P/8/8/2P5/8
	Answer:  Kf7-e7
}

55 #7
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the king protects one pawn, so that the other can run
	FEN: 8/1p6/8/4P3/3p4/3P2P1/7k/5K2
	Answer:  Kf1-f2
}

56 #8
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the white king takes f7 and g7 from the black one, and the c-pawn runs
	FEN: 4K3/8/4p1k1/4P1p1/6P1/8/2P5/8
	Answer:  Ke8-f8
}

57 #8
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the pawn sets out at once; the king has time
	FEN: 8/2p5/2P5/8/P2K4/8/k7/8
	Answer:  a4-a5
}

58 #8
//#TAGS
//#Meredith
//#Zugzwang
{
	Description: Tarnwick, own position: Black has only moves of his king, who is shut in before the f-pawn sets out
	FEN: 1k6/8/1p1K4/1P1p3p/3P3P/5P2/8/8
	Answer:  Kd6-d7
}

59 #9
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the pawn sets out first, and the king follows
	FEN: 8/8/2p5/2P5/P7/3K4/1k6/8
	Answer:  a4-a5
}

60 #9
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the g-pawn stops its opponent for good, and the black king is fenced in
	FEN: 4K3/8/4p2k/4P1p1/8/6P1/2P5/8
	Answer:  g3-g4
}

61 #9
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the king stands beside the pawn on e6 and takes it only when he has a queen
	FEN: 5k2/8/2K1p3/4P1p1/2P3P1/8/8/8
	Answer:  Kc6-d7
}

62 #10
//#TAGS
//#Meredith
{
	Description: Tarnwick, own position: the king shuts the corner before the h-pawn sets out
	FEN: k2K4/8/8/5p2/1p3p2/1P3P1P/8/8
	Answer:  Kd8-c7
}

63 #10
//#TAGS
//#Meredith
{
	Description: Tarnwick, own position: the king walks to d7 before the c-pawn moves
	FEN: 6k1/7p/4p2p/1K2P2P/8/2P5/8/8
	Answer:  Kb5-c6
}

64 #10
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the outside pawn runs; two pairs of blocked pawns look on
	FEN: 8/8/2p5/2P2p2/5P2/P2K4/8/k7
	Answer:  a3-a4
}

65 #11
//#TAGS
//#Miniature
{
	Description: Tarnwick, own position: the double step saves the pawn from the black king
	FEN: 8/7p/7P/5p2/5P2/4K3/Pk6/8
	Answer:  a2-a4
}

66 #11
//#TAGS
//#Meredith
{
	Description: Tarnwick, own position: a wall of pawns in the middle, and one free pawn beside it
	FEN: 8/4p1k1/2p1p3/2PpP3/3P4/4K3/P7/8
	Answer:  a2-a4
}

67 #12
//#TAGS
//#Meredith
{
	Description: Tarnwick, own position: the same wall, but king and pawn stand otherwise, and it takes a move more
	FEN: 8/4p1k1/2p1p3/2PpP3/3P4/P2K4/8/8
	Answer:  a3-a4
}

68 #12
//#TAGS
//#Meredith
{
	Description: Tarnwick, own position: the wall of pawns is longer, and the free pawn again goes alone
	FEN: 8/6k1/2p1p3/2PpP3/2pP4/P1P5/3K4/8
	Answer:  a3-a4
}
