// The pages of the server's help that are about no single command.
#include "practice/commands/HelpPages.h"

namespace practice {

const HelpPages& guidePages() {
    static const HelpPages pages{
        {"computers", R"(Computer players

Sprout, Willow and Granite, from weak to strong, offer games at three time
controls, and Spark, who answers each move at once and always with the same
move in the same position, offers a minute for the whole game: see "sought".
Each accepts a "match" of any kind and plays as many opponents at once as come
that way; the ad goes while its owner plays.  Skipper and Harbour always play
each other: see "games" and "observe".

Twenty-one visitors, some of whom look like people, play one game at a time
each.  Their ads come and go, and come back some seconds after a game.)"},
        {"intro", R"(A way through the practice hall

This is a chess server for one machine.  Nobody minds mistakes here: the
players are computers, games leave no mark on anybody's rating, and all is
forgotten when the server ends, unless it was started with a folder for games.

1. Looking around

"who" lists the players, "games" the games in progress and "sought" the ads of
those who look for an opponent.  "finger NAME" tells more about a player; he
may have written some lines about himself.

2. A game

"play 1" takes ad 1 of the list.  Moves are typed as they are written: e4, Nf3,
exd5, O-O, e8=Q, or by their squares, e2e4.  "draw", "takeback", "abort" and
"resign" are what they say, and the opponent is asked where he has a word in
it.  The clock of the side to move runs; each side's first move is free.

You may choose your opponent: "match willow 5 0" asks for a game of five
minutes.  Whoever says nothing about times gets those of his settings.  Or put
up an ad of your own with "seek 5 0" and wait; computers do not answer ads, so
this is for a friend, or for a second client on this machine.

3. Looking on

"observe" shows the game that is always on, "moves" what has been played in it,
and "unobserve" ends it.  "kibitz" speaks to all at the board, "whisper" to
those who watch.

4. Afterwards

"history" lists your last games.  "examine -1" puts the last of them on your
board again; "backward", "forward" and any legal move lead through it, and
"revert" leads out of a try.  What you want to keep goes into your journal with
"jsave", and "journal" lists it.

A game that has to wait is put aside with "adjourn"; "stored" lists such games,
and a "match" between the same two players goes on with theirs.

5. Talking

"tell NAME TEXT" talks to one player, "tell 50 TEXT" to a channel, "shout TEXT"
to everybody.  "say" goes to your opponent.  Computers answer a tell, if only
with a line about themselves.

6. Settings

"variables" lists what you can set.  "set shout 0" keeps shouts away, for
instance, "set open 0" matches, "set height 40" makes the pieces of long pages
longer.  Up to ten lines about yourself are shown by "finger": see "help
notes".

7. Names

Any name of three letters and more enters as a guest.  Guests play unrated
games, and what they set and keep is gone when they leave.  "help register"
tells of the others.)"},
        {"kinds", R"(Kinds of chess

Seeks and matches may name one: crazyhouse, suicide, losers, wild/0 to wild/5,
wild/8, wild/8a and wild/fr.  Pieces in hand are dropped like N@f3.  In wild/0
and some games of wild/1 the kings start on the d-file and castle to b and f;
in wild/1 both kings share a file.  Bughouse, atomic and wild/6 and wild/7 are
not played here.)"},
        {"notes", R"(Notes

Ten lines about yourself stand at the end of what "finger" tells of you, each
behind its number.  "set 1 TEXT" to "set 10 TEXT" write them, and "set 3" alone
empties the third: those behind it keep their numbers, and a line in between
that was never written shows empty.  A line that is longer than the reader's
screen goes on in the next one, behind a stroke.)"},
        {"prompt", R"(The prompt

It stands where the server waits for you.  "set prompt TEXT" changes it to your
text and a blank, "set prompt" alone brings the usual one back, and "variables"
shows it near the end.  Clients read the prompt: give yours a form that does
not occur in what is said.)"},
        {"register", R"(register

There is nothing to sign: the practice hall has a short list of names with a
password, told by the server program's own --help, and everybody else is a
guest.)"},
    };
    return pages;
}

} // namespace practice
