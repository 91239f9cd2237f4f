// Finds all the phrases that the console tests for in one walk over a line.
#pragma once

#include <cstdint>
#include <string_view>

// The phrases by what they announce. Each is the position of one bit in a PhraseSet.
enum class Phrase : int {
    Challenge,       // "Challenge:"
    Login,           // "login:"
    Password,        // "password:"
    SessionStart,    // "**** Starting FICS session as"
    Underscores,     // thirty "_"
    BacksUp,         // "backs up"
    GoesForward,     // "goes forward"
    WhiteWins,       // "} 1-0"
    Draw,            // "} 1/2-1/2"
    BlackWins,       // "} 0-1"
    Adjourned,       // "game adjourned} *"
    FromObservation, // "from observation list"
    LongerExamining, // "longer examining"
    MutualAgreement, // "by mutual agreement} *"
    GameAborted,     // "Game aborted"
    Aborted,         // "game aborted"
    HasArrived,      // "has arrived"
    HasDeparted,     // "has departed"
    StyleSet,        // "Style 12 set"
    Quillf,          // "quillf"
    Count,
};

// The phrases that a line contains.
struct PhraseSet {
    std::uint32_t bits = 0;

    bool has(Phrase phrase) const { return (bits >> static_cast<int>(phrase) & 1U) != 0; }
    // True if the set holds any of the phrases `first` to `last`, both included.
    bool hasAny(Phrase first, Phrase last) const;
};

// The phrases that occur anywhere in `line`. Case matters.
PhraseSet phrasesIn(std::string_view line);
