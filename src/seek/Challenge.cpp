// Challenges and seeks.
#include "seek/Challenge.h"

#include "common/Numbers.h"
#include "common/Text.h"

MatchSettings fieldsOf(const Challenge& challenge) {
    MatchSettings fields;
    fields.Time = strictInt16(challenge.txtTime);
    fields.Increment = strictInt16(challenge.txtInc);
    fields.Rated = challenge.chkRated ? 1 : 0;
    fields.ServerSettings = challenge.chkServer ? 1 : 0;
    fields.Minimum = strictInt16(challenge.txtMin);
    fields.Maximum = strictInt16(challenge.txtMax);
    fields.Color = static_cast<std::int16_t>(challenge.cboColor.index);
    fields.Type = static_cast<std::int16_t>(challenge.cboType.index);
    return fields;
}

// "Match fred 5 0 Crazyhouse u White ", "Seek 3 0 r 0-9999"
std::string challengeLine(const Challenge& challenge, bool matchMode) {
    std::string line = matchMode ? "Match " + challenge.txtOpp + " " : "Seek ";
    if (challenge.chkServer) return line;
    line.append(trim(challenge.txtTime)).append(" ").append(trim(challenge.txtInc)).append(" ");
    if (challenge.cboType.index != 0) line += challenge.cboType.text + " ";
    line += challenge.chkRated ? "r" : "u";
    line += challenge.cboColor.index != 0 ? " " + challenge.cboColor.text + " " : " ";
    if (!matchMode) line += challenge.txtMin + "-" + challenge.txtMax;
    return line;
}
