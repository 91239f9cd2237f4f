// The phrases of a line as a set.
#include "session/LinePhrases.h"

#include <gtest/gtest.h>

TEST(LinePhrases, ARangeHasItsFirstPhraseItsLastAndThoseInBetween) {
    constexpr int Count = static_cast<int>(Phrase::Count);
    for (int phrase = 0; phrase < Count; ++phrase) {
        const PhraseSet set{1U << phrase};
        for (int first = 0; first < Count; ++first) {
            for (int last = first; last < Count; ++last) {
                EXPECT_EQ(set.hasAny(Phrase{first}, Phrase{last}), first <= phrase && phrase <= last)
                    << phrase << " in " << first << " to " << last;
            }
        }
    }
}
