// What each recorded move list says, field by field. The moves are "white (time) black (time)", as the columns give
// them: where a server's columns are wider, the black ones come out cut.
#pragma once

#include <ostream>
#include <string>
#include <vector>

struct RecordedMoveList {
    std::string file; // in tests/data/streams
    int number;       // in its file
    bool ends;        // with a result line that is one
    std::string white;
    int whiteElo;
    std::string black;
    int blackElo;
    std::string date;
    std::string time;
    std::string event;
    std::string timeControl;
    float lastMove;
    std::string moves;
    std::string result;
};

inline void PrintTo(const RecordedMoveList& list, std::ostream* out) { *out << list.file << " " << list.number; }

inline const std::vector<RecordedMoveList> recordedMoveLists{
    {"text/moves_standard.txt", 0, true, "homerg", 1626, "drakorg", 1678, "2002.11.04", "08:38", "Rated standard match",
     "10+12", 9,
     "e4 (0:00.000) e (0:00.000); Nf3 (0:01.699) d (0:11.371); e5 (0:02.251) c (0:01.980); c3 "
     "(0:01.491) N (0:03.301); d4 (0:01.260) Q (0:07.200); Bd3 (0:02.090) c (0:06.380); Ng5 "
     "(0:15.370) B (0:30.369); Bxh7 (0:15.330) d (0:16.700); Qe2 (1:20.360) N (0:25.269)",
     "      {Still in progress} *"},
    {"text/moves_standard.txt", 1, true, "drakorg", 1821, "Kornograf", 1808, "2003.08.24", "00:59",
     "Rated standard match", "30+20", 3.5F,
     "e4 (0:00.000) d (0:00.000); exd5 (0:01.100) Q (0:41.910); Nf3 (0:13.899) B (1:05.470); Nc3 "
     "(0:40.590)",
     "      {Still in progress} *"},
    {"text/moves_crazyhouse.txt", 0, true, "hellokitty", 1811, "leilatov", 1911, "2015.08.11", "14:34",
     "Rated crazyhouse match", "2+0", 15.5F,
     "d4 (0:00.000) e (0:00.000); Nc3 (0:02.248) N (0:03.767); e4 (0:01.474) h (0:00.839); Nf3 "
     "(0:04.250) B (0:00.863); Bd3 (0:00.561) d (0:04.510); exd5 (0:09.266) N (0:02.613); O-O "
     "(0:02.051) B (0:01.566); bxc3 (0:01.411) N (0:01.494); Qe1 (0:00.811) P (0:06.389); Bxe4 "
     "(0:05.274) N (0:21.388); Kh1 (0:04.971) N (0:17.724); Qxe2 (0:03.059) B (0:02.836); N@h5 "
     "(0:05.868) R (0:04.299); P@h7 (0:02.125) K (0:12.266); hxg8=Q (0:04.426) Q (0:00.365); B@e5 "
     "(0:10.739)",
     "      {Still in progress} *"},
    {"text/moves_relayed.txt", 0, true, "GMJLHammer", 2612, "GMGrandelius", 2576, "2013.12.30", "05:56",
     "Unrated standard match", "120+0", 15.5F,
     "Nf3 (0:00) Nf6 (0:00); g3 (0:04) g6 (2:08); Bg2 (0:04) Bg7 (0:02); c4 (0:03) d5 (2:03); cxd5 "
     "(1:03) Nxd5 (0:03); O-O (6:36) O-O (2:09); d4 (0:04) Nb6 (0:03); Nc3 (0:03) Nc6 (0:55); d5 "
     "(0:03) Na5 (0:05); e4 (7:37) c6 (0:03); Bf4 (1:05) cxd5 (0:04); Nxd5 (1:02) Nxd5 (1:06); exd5 "
     "(1:08) Nc4 (0:05); Qb3 (1:07) Nd6 (1:07); Rfe1 (11:32) Re8 (11:47); h3 (0:04)",
     "      {Still in progress} *"},
    {"text/moves_with_milliseconds.txt", 0, true, "BwanaSlei", 1137, "mgatto", 1336, "2008.11.05", "20:56",
     "Rated blitz match", "5+0", 1.5F, "e4 (0:00.000) c5 (0:00.000); Nf3 (0:00.000)",
     "      {White lost connection; game adjourned} *"},
    {"text/smoves_standard_and_fr.txt", 0, true, "Ajido", 2281, "IMgooeyjim", 2068, "2010.10.14", "20:36",
     "Rated standard match", "15+3", 3,
     "d4 (0:00.000) N (0:00.000); c4 (0:04.061) g (0:00.969); Nc3 (0:13.280) B (0:06.422)",
     "      {Still in progress} *"},
    {"text/smoves_standard_and_fr.txt", 1, false, "BwanaSlei", 1137, "mgatto", 1336, "2008.11.05", "20:56",
     "Rated blitz match", "5+0", 0, "", ""},
    {"text/smoves_standard_and_fr.txt", 2, true, "kurushi", 1626, "mgatto", 1627, "2010.11.04", "10:33",
     "Rated wild/3 match", "3+0", 27.5F, "Nb3 (0:00.000) d (0:00.000); Nhg3 (0:00.386) e (0:03.672); Rxd5 (0:00.412)",
     "      {Black lost connection; game adjourned} *"},
    {"text/smoves_standard_and_fr.txt", 3, false, "mgatto", 1233, "BabyLurking", 1455, "2010.11.05", "04:33",
     "Rated blitz match", "5+0", 0, "", ""},
    {"text/smoves_standard_and_fr.txt", 4, false, "mgatto", 1627, "gbtami", 1881, "2010.10.21", "00:10",
     "Rated wild/fr match", "5+0", 0, "", ""},
    {"server-a/01_anders_registered.raw", 0, true, "Anders", 0, "Berta", 0, "", "", "Unrated blitz match", "10+5", 6,
     "e4 (0:00.000) e (0:00.000); Nf3 (0:00.303) N (0:00.274); Bb5 (0:00.302) a (0:00.273); Bxc6 "
     "(0:00.303) d (0:00.303); O-O (0:00.302) B (0:00.275); h3 (0:00.303) h (0:00.302)",
     "      {Still in progress} *"},
    {"server-a/01_anders_registered.raw", 1, true, "Anders", 0, "Berta", 0, "", "", "Unrated untimed match", "0+0", 1,
     "e4 (0:00.000) e (0:00.000)", "      {Still in progress} *"},
    {"server-a/01_anders_registered.raw", 2, true, "Anders", 0, "Berta", 0, "", "", "Unrated crazyhouse match", "5+0",
     4,
     "e4 (0:00.000) d (0:00.000); exd5 (0:00.308) Q (0:00.320); Nc3 (0:00.309) Q (0:00.287); P@d5 "
     "(0:00.315) P (0:00.310)",
     "      {Still in progress} *"},
    {"server-a/03_guest_observer.raw", 0, true, "Anders", 0, "Berta", 0, "", "", "Unrated blitz match", "10+5", 6,
     "e4 (0:00) e (0:00); Nf3 (0:00) N (0:00); Bb5 (0:00) a (0:00); Bxc6 (0:00) d (0:00); O-O (0:00) "
     "B (0:00); h3 (0:00) h (0:00)",
     "      {Still in progress} *"},
    {"server-a/20_bughouse_GuestABCD.raw", 0, true, "GuestABCD", 0, "GuestIJKL", 0, "", "", "Unrated bughouse match",
     "3+0", 4,
     "e4 (0:01.082) d (0:00.500); exd5 (0:00.564) Q (0:00.565); Nc3 (0:00.528) Q (0:00.631); P@e6 "
     "(0:04.766) f (0:00.532)",
     "      {Still in progress} *"},
    {"server-a/45_observer_two_games.raw", 0, true, "Doris", 0, "admin", 0, "", "", "Unrated blitz match", "5+0", 1,
     "c4 (0:00) c (0:00)", "      {Still in progress} *"},
    {"server-a/60_movelists.raw", 0, true, "Detlef", 1787, "admin", 0, "", "", "Unrated blitz match", "10+0", 6,
     "e4 (0:00) e (0:00); Nf3 (0:00) N (0:00); Bc4 (0:00) B (0:00); c3 (0:00) N (0:00); d4 (0:00) e "
     "(0:00); cxd4 (0:00) B (0:00)",
     "      {Still in progress} *"},
    {"server-a/60_movelists.raw", 1, true, "Detlef", 1787, "admin", 0, "", "", "Unrated blitz match", "10+0", 6,
     "e4 (0:00) e (0:00); Nf3 (0:00) N (0:00); Bc4 (0:00) B (0:00); c3 (0:00) N (0:00); d4 (0:00) e "
     "(0:00); cxd4 (0:00) B (0:00)",
     "      {Still in progress} *"},
    {"server-a/60_movelists.raw", 2, true, "Detlef", 1787, "admin", 0, "", "", "Unrated blitz match", "10+0", 6,
     "e4 (0:00) e (0:00); Nf3 (0:00) N (0:00); Bc4 (0:00) B (0:00); c3 (0:00) N (0:00); d4 (0:00) e "
     "(0:00); cxd4 (0:00) B (0:00)",
     "      {Still in progress} *"},
    {"server-a/60_movelists.raw", 3, true, "Detlef", 0, "Carla", 0, "", "", "Unrated untimed match", "0+0", 0, "",
     "      {Still in progress} *"},
    {"server-b/01_anders_registered.raw", 0, true, "Anders", 1720, "Berta", 1720, "2013.04.12", "02:14",
     "Unrated non-standard match", "10+5", 6,
     "e4 (0:00) e5 (0:00); Nf3 (0:00) Nc6 (0:00); Bb5 (0:00) a6 (0:00); Bxc6 (0:00) dxc6 (0:00); O-O "
     "(0:00) Bg4 (0:00); h3 (0:00) h5 (0:00)",
     "      {Still in progress} *"},
    {"server-b/01_anders_registered.raw", 1, true, "Anders", 0, "Berta", 0, "2013.04.12", "02:11",
     "Unrated non-standard match", "10+5", 5.5F,
     "e4 (0:00) e5 (0:00); Nf3 (0:00) Nc6 (0:00); Bb5 (0:00) a6 (0:00); Bxc6 (0:00) dxc6 (0:00); O-O "
     "(0:00) Bg4 (0:00); h3 (0:00)",
     "      {Black resigned} 1-0"},
    {"server-b/01_anders_registered.raw", 2, true, "Berta", 0, "Anders", 0, "2013.04.12", "02:14",
     "Unrated blitz match", "3+0", 2, "f3 (0:00) e5 (0:00); g4 (0:00) Qh4+ (0:00)", "      {White checkmated} 0-1"},
    {"server-b/01_anders_registered.raw", 3, true, "Anders", 1720, "Berta", 1720, "2013.04.12", "02:14",
     "Rated standard match", "15+0", 2, "d4 (0:00) d5 (0:00); c4 (0:00) e6 (0:00)", "      {Still in progress} *"},
    {"server-b/01_anders_registered.raw", 4, true, "Anders", 0, "Berta", 0, "2013.04.12", "02:14",
     "Unrated crazyhouse match", "5+0", 4,
     "e4 (0:00) d5 (0:00); exd5 (0:00) Qxd5 (0:00); Nc3 (0:01) Qa5 (0:00); P@d5 (0:00) P@e4 (0:00)",
     "      {Still in progress} *"},
    {"server-b/10_examine_journal.raw", 0, true, "Cesar", 0, "Doris", 0, "2013.04.12", "02:19", "Unrated blitz match",
     "5+0", 11,
     "e4 (0:00) e5 (0:00); Nf3 (0:00) Nc6 (0:00); Bc4 (0:00) Bc5 (0:00); c3 (0:00) Nf6 (0:00); d4 "
     "(0:00) exd4 (0:00); cxd4 (0:00) Bb4+ (0:00); Bd2 (0:00) Bxd2+ (0:00); Nbxd2 (0:00) d5 (0:00); "
     "exd5 (0:00) Nxd5 (0:00); Qb3 (0:00) Nce7 (0:00); O-O (0:00) O-O (0:00)",
     "      {Black resigned} 1-0"},
    {"server-b/10_examine_journal.raw", 1, true, "Cesar", 0, "Doris", 0, "2013.04.12", "02:19", "Unrated blitz match",
     "5+0", 11,
     "e4 (0:00) e5 (0:00); Nf3 (0:00) Nc6 (0:00); Bc4 (0:00) Bc5 (0:00); c3 (0:00) Nf6 (0:00); d4 "
     "(0:00) exd4 (0:00); cxd4 (0:00) Bb4+ (0:00); Bd2 (0:00) Bxd2+ (0:00); Nbxd2 (0:00) d5 (0:00); "
     "exd5 (0:00) Nxd5 (0:00); Qb3 (0:00) Nce7 (0:00); O-O (0:00) O-O (0:00)",
     "      {Black resigned} 1-0"},
    {"server-b/10_examine_journal.raw", 2, true, "Cesar", 0, "Doris", 0, "2013.04.12", "02:19",
     "Unrated bughouse match", "3+0", 3, "e4 (0:00) d5 (0:00); exd5 (0:01) Qxd5 (0:01); Nc3 (0:01) Qd8 (0:01)",
     "      {Still in progress} *"},
    {"server-b/60_movelists.raw", 0, true, "Carla", 0, "Detlef", 0, "2013.04.12", "23:38", "Unrated blitz match", "5+3",
     8,
     "e4 (0:00) e5 (0:00); Nf3 (0:00) Nc6 (0:00); Bb5 (0:00) a6 (0:00); Ba4 (0:00) Nf6 (0:00); O-O "
     "(0:00) Be7 (0:00); Re1 (0:00) b5 (0:00); Bb3 (0:00) d6 (0:00); c3 (0:00) O-O (0:00)",
     "      {White resigned} 0-1"},
    {"server-b/60_movelists.raw", 1, true, "Detlef", 0, "Carla", 0, "2013.04.12", "23:47", "Unrated standard match",
     "15+5", 5,
     "d4 (0:00) d5 (0:00); c4 (0:00) e6 (0:00); Nc3 (0:00) Nf6 (0:00); Bg5 (0:00) Be7 (0:00); e3 "
     "(0:00) O-O (0:00)",
     "      {Game drawn by mutual agreement} 1/2-1/2"},
    {"server-b/60_movelists.raw", 2, true, "Detlef", 0, "Carla", 0, "2013.04.12", "23:49", "Unrated standard match",
     "30+0", 4, "e4 (0:00) e5 (0:00); Nf3 (0:00) Nc6 (0:00); Bb5 (0:00) Nf6 (0:00); O-O (0:00) Nxe4 (0:00)",
     "      {Still in progress} *"},
    {"server-b/60_movelists.raw", 3, true, "Carla", 0, "admin", 0, "2013.04.12", "23:49", "Unrated standard match",
     "12+7", 5,
     "d4 (0:00) Nf6 (0:00); c4 (0:00) e6 (0:00); Nc3 (0:00) Bb4 (0:00); e3 (0:00) O-O (0:00); Bd3 "
     "(0:00) d5 (0:00)",
     "      {Still in progress} *"},
    {"server-b/60_movelists.raw", 4, true, "Detlef", 1558, "Carla", 1882, "2013.04.12", "23:47", "Rated blitz match",
     "5+0", 0, "", "      {Black resigned} 1-0"},
};
