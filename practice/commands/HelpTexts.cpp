// The server's help.
#include "practice/commands/HelpTexts.h"

#include "practice/commands/CommandNames.h"
#include "practice/text/Text.h"

#include <map>

namespace practice {

namespace {

constexpr std::size_t screenWidth = 79;

const std::map<std::string, std::string>& topics() {
    static const std::map<std::string, std::string> texts{
        {"accept", "accept [number|name|kind]\n\nTakes an offer that was made to you: a challenge, or a draw, abort, "
                   "adjourn or takeback in your game. "
                   "\"decline\" refuses it, \"withdraw\" takes your own back, and \"pending\" lists them all."},
        {"adjourn", "adjourn\n\nOffers to keep the game for another day. \"stored\" lists such games; a \"match\" "
                    "between the same two "
                    "players goes on with theirs. Both must be registered."},
        {"examine",
         "examine [[name] number|slot|opponent]\n\nPuts a finished or adjourned game on your board: numbers are those "
         "of "
         "\"history\", -1 is the last game, slots are those of \"journal\", and without anything you get the start "
         "position. \"forward [n]\" and "
         "\"backward [n]\" walk through it, any legal move may be tried, \"revert\" comes back from a try, and "
         "\"unexamine\" ends it. Others may observe, and \"mexamine NAME\" lets one of them examine as well."},
        {"history",
         "history [name]\n\nLists a player's last ten games; \"smoves name number\" gives the moves of one."},
        {"journal", "journal [name]\n\nLists the games that a player chose to keep, in slots A to J. \"jsave SLOT NAME "
                    "NUMBER\" puts "
                    "a game of anybody's history into one of yours, \"jkill SLOT\" empties it. Guests lose theirs when "
                    "they leave."},
        {"stored",
         "stored [name]\n\nLists a player's adjourned games. A \"match\" between the same two goes on with theirs."},
        {"kinds", "Kinds of chess\n\nSeeks and matches may name one: crazyhouse, suicide, losers, wild/0 to wild/5, "
                  "wild/8, wild/8a and "
                  "wild/fr. Pieces in hand are dropped like N@f3. In wild/0 and some games of wild/1 the kings start "
                  "on the d-file and castle to b and f; in wild/1 both kings share a "
                  "file. Bughouse, atomic and wild/6 and wild/7 are not played here."},
        {"match",
         "match NAME [time inc] [rated|unrated] [white|black] [kind]\n\nChallenges a player, who answers with "
         "\"accept\" or "
         "\"decline\". Computers accept always. Another challenge takes the place of the first, and \"withdraw\" takes "
         "it back; one in answer to his, with other terms, declines his. \"help kinds\" tells what can be played; "
         "\"rematch\" asks your last opponent for another game with the "
         "colours turned."},
        {"takeback", "takeback [half-moves]\n\nAsks the opponent to take back the last half-move, or several. "
                     "Computers are always willing."},
        {"abort", "abort\n\nBefore both sides have moved the game ends at once, without a result.  Later a computer\n"
                  "agrees always, and a player may answer with \"abort\" or \"accept\"."},
        {"computers",
         "Computer players\n\nSprout, Willow and Granite, from weak to strong, offer games at three time "
         "controls, and Spark, who answers each move at once and always with the same move in the same position, "
         "offers "
         "a minute for the whole game: see \"sought\". Each accepts a \"match\" of any kind and plays as many "
         "opponents "
         "at once as come that way; the ad goes while its owner plays. Skipper and Harbour always play each other: "
         "see \"games\" and \"observe\".\n\nTwenty-one visitors, some of whom look like people, play one game at a "
         "time each. Their ads come and go, and come back some seconds after a game."},
        {"draw", "draw\n\nOffers a draw, or accepts the one that is offered.  A third repetition, fifty moves\n"
                 "without capture or pawn's move, and a lack of mating material end a game by themselves."},
        {"finger", "finger [name]\n\nTells about a player.  \"set 1 TEXT\" to \"set 10 TEXT\" write your own notes."},
        {"flag", "flag\n\nClaims the game when the opponent's time is over.  With \"set autoflag 1\" the server\n"
                 "does so for you; computers are never slow to claim.  Each side's first move is free."},
        {"games", "games [name]\n\nLists the games in progress."},
        {"moves", "moves [number|name]\n\nLists the moves of your game, or of another."},
        {"observe", "observe [number|name]\n\nShows a game's moves as they are made; \"unobserve [number]\" ends it."},
        {"play", "play NUMBER|NAME\n\nAnswers an ad of \"sought\", or the only one of a player; the game starts at "
                 "once. A number that has gone is not given again soon."},
        {"assess", "assess NAME [NAME]\n\nTells what a rated game would be worth to both. Ratings never change here."},
        {"promote", "promote q|r|b|n\n\nChooses the piece that a pawn becomes when the move does not name one.\n"
                    "A move may name it: \"e7e8=q\", \"e8=Q\"."},
        {"quit", "quit\n\nEnds the session.  Resign or abort a game first."},
        {"register",
         "register\n\nThere is nothing to sign: the practice hall has a short list of names with a password,\n"
         "told by the server program's own --help, and everybody else is a guest."},
        {"resign", "resign\n\nGives the game up."},
        {"seek",
         "seek [time inc] [rated|unrated] [white|black] [low-high]\n\nOffers a game to everybody: minutes, then\n"
         "seconds a move.  \"unseek\" takes it back.  Ratings never change here."},
        {"set",
         "set VARIABLE VALUE\n\nChanges a setting; a switch without a value toggles.  \"variables\" lists them,\n"
         "\"set prompt TEXT\" changes the prompt."},
        {"shout", "shout TEXT\n\nSays something to everybody."},
        {"sought", "sought\n\nLists the open ads. \"set seek 0\" and \"set seek 1\" switch the lines off and on that "
                   "tell of new ones."},
        {"style", "style 12\n\nBoards come in style 12 only: one line for programs to read."},
        {"tell",
         "tell NAME|CHANNEL TEXT\n\nTalks to one player, or to a channel.  Everybody starts in channels 1 and 50;\n"
         "\"+channel N\" and \"-channel N\" change that.  \"say\" goes to your opponent."},
        {"who", "who\n\nLists who is logged on, with ratings; ^ marks those who play."},
    };
    return texts;
}

// The words of a paragraph in lines that fit the narrowest usual screen.
std::string flowedParagraph(const std::string& text) {
    std::string result;
    std::size_t column = 0;
    for (const std::string& word : words(text)) {
        const bool full = column + 1 + word.size() > screenWidth;
        if (column > 0) result += full ? '\n' : ' ';
        column = full || column == 0 ? word.size() : column + 1 + word.size();
        result += word;
    }
    return result;
}

std::string flowed(const std::string& text) {
    const auto gap = text.find("\n\n");
    if (gap == std::string::npos) return flowedParagraph(text);
    return flowedParagraph(text.substr(0, gap)) + "\n\n" + flowed(text.substr(gap + 2));
}

std::string overview() {
    return "help [topic]\n\nThe practice hall lets you play computers of three strengths, watch a game that is\n"
           "always on, and talk to whoever else is here.  Start with \"sought\" and \"play 1\"; moves are\n"
           "typed like e2e4, Nf3, exd5, O-O or e8=Q.\n\n\"help commands\" lists the commands, \"help computers\" the "
           "players.";
}

std::string commandList() {
    std::string text = "Commands:\n\n";
    int column = 0;
    for (const std::string& name : commandNames()) {
        text += padRight(name, 15);
        if (++column % 5 == 0) text += "\n";
    }
    return trim(text);
}

} // namespace

std::string helpOn(const std::string& topic) {
    const std::string wanted = lower(trim(topic));
    if (wanted.empty() || wanted == "help") return flowed(overview());
    if (wanted == "commands") return commandList();
    const auto at = topics().lower_bound(wanted);
    if (at != topics().end() && startsWith(at->first, wanted)) return flowed(at->second);
    return "No help available on \"" + wanted + "\".";
}

} // namespace practice
