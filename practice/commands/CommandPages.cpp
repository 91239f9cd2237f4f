// The pages of the server's help about commands.
#include "practice/commands/HelpPages.h"

namespace practice {

const HelpPages& commandPages() {
    static const HelpPages pages{
        {"abort", R"(abort

Before both sides have moved the game ends at once, without a result.  Later a
computer agrees always, and a player may answer with "abort" or "accept".)"},
        {"accept", R"(accept [number|name|kind]

Takes an offer that was made to you: a match, or a draw, abort, adjourn or
takeback in your game.  With several of them name one, as "pending" lists it.)"},
        {"adjourn", R"(adjourn

Offers to keep the game for another day.  "stored" lists such games; a "match"
between the same two players goes on with theirs.  Both must be registered.)"},
        {"allobservers", R"(allobservers

Lists the games that somebody watches, with all who do.)"},
        {"assess", R"(assess NAME [NAME]

Tells what a rated game would be worth to both.  Ratings never change here.)"},
        {"backward", R"(backward [half-moves]

Goes back in the game that you examine, by one half-move or as many as you say.)"},
        {"date", R"(date

Tells the server's date and time.)"},
        {"decline", R"(decline [number|name|kind]

Refuses an offer that was made to you.  With several of them name one, as
"pending" lists it.)"},
        {"draw", R"(draw

Offers a draw, or accepts the one that is offered.  A third repetition, fifty
moves without capture or pawn's move, and a lack of mating material end a game
by themselves.)"},
        {"examine", R"(examine [[name] number|slot|opponent]

Puts a finished or adjourned game on your board: numbers are those of
"history", -1 is the last game, slots are those of "journal", and without
anything you get the start position.  Walk with "forward" and "backward", try
any legal move, come back from a try with "revert", and end with "unexamine".
Others may observe, and "mexamine NAME" lets one of them examine as well.)"},
        {"finger", R"(finger [name]

Tells about a player: since when he is here, his results, and his notes.
"help notes" tells how to write your own.)"},
        {"flag", R"(flag

Claims the game when the opponent's time is over.  With "set autoflag 1" the
server does so for you; computers are never slow to claim.  Each side's first
move is free.)"},
        {"forward", R"(forward [half-moves]

Goes on in the game that you examine, by one half-move or as many as you say;
999 leads to the end of any game.)"},
        {"games", R"(games [name]

Lists the games in progress, or those with a player whose name begins so.  A
"p" in front of the kind marks a private one.)"},
        {"help", R"(help [topic]

The practice hall lets you play computers of three strengths, watch a game that
is always on, and talk to whoever else is here.  Start with "sought" and
"play 1"; moves are typed like e2e4, Nf3, exd5, O-O or e8=Q.

"help commands" lists the commands, and each of them is a topic.  Other topics
are "intro" for a way through the hall, "computers" for the players, "kinds"
for what can be played, "variables", "notes" and "prompt" for your settings,
"register" for names with a password, and "manual" for all commands in one.

Long pages come in pieces as high as your screen; "next" shows the next piece.)"},
        {"history", R"(history [name]

Lists a player's last ten games; "smoves NAME NUMBER" gives the moves of one,
and "examine NAME NUMBER" puts it on your board.)"},
        {"inchannel", R"(inchannel [channel]

Lists who listens to a channel, or to each of them.)"},
        {"iset", R"(iset NAME VALUE

There are no such variables here.  Clients try some at the start of a session
and do without.)"},
        {"it", R"(it TEXT

Says in a shout what you do: "it smiles" shows your name and "smiles".)"},
        {"jkill", R"(jkill SLOT

Empties a slot of your journal.)"},
        {"journal", R"(journal [name]

Lists the games that a player chose to keep, in slots A to J.  With
"set jprivate 1" nobody but you reads yours.  Guests lose theirs when they
leave.)"},
        {"jsave", R"(jsave SLOT [name] number|slot|opponent

Puts a game of anybody's history or journal, or an adjourned one, into a slot
of your journal, A to J.  What stood there is gone.)"},
        {"kibitz", R"(kibitz TEXT

Says something to all at the game that you play, examine or watch: to players
and to those who look on.)"},
        {"mailstored", R"(mailstored [name] number|slot|opponent

There is no mail in the hall; the answer says how to read the moves.)"},
        {"match", R"(match NAME [time inc] [rated|unrated] [white|black] [kind]

Asks a player for a game; he answers with "accept" or "decline".  Computers
accept always.  What you do not say comes from your settings: time, inc and
rated.  Another such offer takes the place of the first, and "withdraw" takes
it back; one in answer to his, with other terms, declines his.  "help kinds"
tells what can be played; "rematch" asks your last opponent for another game
with the colours turned.)"},
        {"mexamine", R"(mexamine NAME

Makes one who observes the game that you examine an examiner as well.)"},
        {"moves", R"(moves [number|name]

Lists the moves of your game, or of another.)"},
        {"next", R"(next

Shows the next piece of a help page that is longer than your screen, whose
lines are counted by the setting "height".)"},
        {"observe", R"(observe [number|name]

Shows a game's moves as they are made; "unobserve [number]" ends it.  You
cannot watch while you play or examine, and private games are not shown.)"},
        {"pending", R"(pending

Lists the offers that you have made and those that wait for your answer, each
with its number.)"},
        {"play", R"(play NUMBER|NAME

Answers an ad of "sought", or the only one of a player; the game starts at
once.  A number that has gone is not given again soon.)"},
        {"promote", R"(promote q|r|b|n

Chooses the piece that a pawn becomes when the move does not name one.  A move
may name it: "e7e8=q", "e8=Q".)"},
        {"quit", R"(quit

Ends the session.  Resign or abort a game first.)"},
        {"refresh", R"(refresh [number|name]

Shows the board at hand once more, or that of another game.)"},
        {"rematch", R"(rematch

Asks your last opponent for another game on the same terms, with the colours
turned.)"},
        {"resign", R"(resign

Gives the game up.)"},
        {"revert", R"(revert

Goes back to the last position of the examined game that was not tried but
played.)"},
        {"say", R"(say TEXT

Talks to your opponent, or after the game to the last one.)"},
        {"seek", R"(seek [time inc] [rated|unrated] [white|black] [kind] [low-high]

Offers a game to everybody: minutes, then seconds a move.  What you do not say
comes from your settings: time, inc and rated.  "unseek" takes it back.
Ratings never change here.)"},
        {"set", R"(set VARIABLE [VALUE]

Changes one of your settings.  A switch takes 0 or 1, "off" or "on", and
without a value it toggles; the others take a number.  "set prompt TEXT"
changes the prompt, and "set 1 TEXT" to "set 10 TEXT" write your notes.
"variables" lists the settings, and "help variables" tells what they do.)"},
        {"shout", R"(shout TEXT

Says something to everybody who has not said "set shout 0".)"},
        {"smoves", R"(smoves [name] number|slot|opponent

Lists the moves of a game that is over or adjourned: a number of "history", a
slot of "journal", or the opponent of an adjourned one.)"},
        {"sought", R"(sought [all]

Lists the open ads.  "set seek 0" and "set seek 1" switch the lines off and on
that tell of new ones.)"},
        {"stored", R"(stored [name]

Lists a player's adjourned games.  A "match" between the same two goes on with
theirs.)"},
        {"style", R"(style 12

Boards come in style 12 only: one line for programs to read.)"},
        {"takeback", R"(takeback [half-moves]

Asks the opponent to take back the last half-move, or several.  Computers are
always willing.)"},
        {"tell", R"(tell NAME|CHANNEL TEXT

Talks to one player, or to a channel.  Everybody starts in channels 1 and 50;
"+channel N" and "-channel N" change that.  A dot for the name means whom you
told something last.  "say" goes to your opponent.)"},
        {"time", R"(time [number|name]

Tells how much time is left in your game, or in another.)"},
        {"unexamine", R"(unexamine

Takes the examined game off your board.)"},
        {"unobserve", R"(unobserve [number|name]

Watches a game no more; without a number, none at all.)"},
        {"unseek", R"(unseek [number]

Takes back one of your ads, or all of them.)"},
        {"uptime", R"(uptime

Tells how long the practice hall has been open.)"},
        {"variables", R"(variables [name]

Lists your settings, or those of another player, with your prompt at the end.
"set" changes them.

These take a number:

  time         minutes of a match or an ad that does not say    0 to 546
  inc          seconds a move of the same                       0 to 999
  width        columns of your screen, where lines are cut     32 to 240
  height       lines of your screen, for help in pieces         5 to 240
  kiblevel     rating below which nobody's kibitzes reach you   0 to 9999
  availmin     lowest rating of players to hear of when free,   0 to 9999
  availmax     and the highest; kept, and nobody tells          0 to 9999
  unobserve    kept, without effect here                        0 to 3
  tolerance    kept, without effect here                        1 to 5
  style        12 is the only one

These are switches, 1 for on.  What they do when they are on:

  rated        matches and ads are rated where both players may, unless said
  open         others may ask you for a match
  ropen        so may those whose own setting of "rated" differs
  seek         new ads are told
  private      games that you begin cannot be observed
  jprivate     nobody but you reads your journal
  autoflag     a win on time is claimed for you
  kibitz       kibitzes and whispers are heard
  shout        shouts are heard
  tell         guests may talk to you
  ctell        guests are heard in channels
  chanoff      no channel is heard at all
  silence      neither shouts nor channels are heard while you play
  pin          arrivals and departures of players are told
  gin          results of other games are told

Kept for you, and shown to all who ask, but without effect in this hall, where
there is neither mail, nor bughouse, nor a list of friends:

  availinfo    automail     bell         bugopen      cshout
  echo         examine      flip         highlight    mailmess
  messreply    minmovetime  noescape     notakeback   notifiedby
  pgn          provshow     ptime        showownseek  tourney

Names may be cut short as long as one name alone begins so.  Those who are
registered find their settings again until the server ends.)"},
        {"whisper", R"(whisper TEXT

Says something to those who watch the game at hand, and not to its players.)"},
        {"who", R"(who

Lists who is logged on, with ratings; ^ marks those who play.)"},
        {"withdraw", R"(withdraw [number|name|kind]

Takes back an offer of yours.  With several of them name one, as "pending"
lists it.)"},
        {"xkibitz", R"(xkibitz NUMBER TEXT

Says something to all at the game of this number.)"},
        {"xtell", R"(xtell NAME TEXT

Talks to one player; a number is no channel here.)"},
        {"xwhisper", R"(xwhisper NUMBER TEXT

Says something to those who watch the game of this number.)"},
    };
    return pages;
}

} // namespace practice
