// A store from before, each of its keys missing in turn and hostile in turn: the program starts, its options open and
// take OK, and what is saved is right.
#include "session/OptionsRig.h"

#include <map>

namespace {

// What a key holds, and what OK makes of it.
enum class Form {
    Text,
    Font,       // a text; OK fills an empty one
    Flag,       // "True" or "False"
    Number,     // of 16 or 32 bits; the hostile ones fit both or neither
    Tick,       // a number that OK makes 0 or 1; what is neither is 0
    Sound,      // a number of which OK leaves the two lowest bits
    White,      // a number that OK makes -1 or 0
    Coordinate, // a number; where the window stands at last is saved
};

struct Row {
    std::string key;
    Form form;
    std::string before; // what stands in the store
    std::string absent; // what its absence means
    std::string start;  // what the program has before it reads
};

std::vector<Row> tells() {
    std::vector<Row> rows;
    for (int index = 0; index <= 9; ++index) {
        const std::string digit = std::to_string(index);
        rows.push_back({"Tell_" + digit, Form::Text, "tell " + digit, "", ""});
    }
    return rows;
}

// In the order of reading.
std::vector<Row> allRows() {
    std::vector<Row> rows{{"Registry_OK", Form::Text, "Yes", "No", "No"},
                          {"Left", Form::Coordinate, "150", "0", "0"},
                          {"Top", Form::Coordinate, "150", "0", "0"},
                          {"Width", Form::Coordinate, "9000", "11400", "11400"},
                          {"Height", Form::Coordinate, "6000", "8400", "8400"},
                          {"Handle", Form::Text, "fred", "", ""},
                          {"Password", Form::Text, "secret", "", ""}};
    const std::vector<Row> commands = tells();
    rows.insert(rows.end(), commands.begin(), commands.end());
    const std::vector<Row> rest{{"Seek_Graph", Form::Flag, "True", "False", "False"},
                                {"Auto_Connect", Form::Flag, "True", "False", "False"},
                                {"Auto_Logon", Form::Flag, "True", "False", "False"},
                                {"Use_Timeseal", Form::Flag, "False", "True", "True"},
                                {"Last_Server", Form::Number, "2", "0", "0"},
                                {"Color_Main", Form::Number, "1", "33023", "0"},
                                {"Color_Background", Form::Number, "2", "0", "12648447"},
                                {"Color_Bar_Backgnd", Form::Number, "3", "16777215", "12648447"},
                                {"Color_Tell", Form::Number, "4", "255", "255"},
                                {"Color_Copy", Form::Number, "5", "14862761", "16711680"},
                                {"Color_Type", Form::Number, "6", "0", "0"},
                                {"Color_Shout", Form::Number, "7", "16777215", "8388736"},
                                {"Color_White", Form::Number, "8", "13495025", "13495025"},
                                {"Color_Black", Form::Number, "9", "3048380", "3048380"},
                                {"Color_Move", Form::Number, "10", "255", "255"},
                                {"Color_PreMove", Form::Number, "11", "65280", "65280"},
                                {"Main_Font", Form::Font, "Mine", "", ""},
                                {"Sound_On", Form::Tick, "0", "1", "1"},
                                {"Sound_Move", Form::Sound, "1", "3", "3"},
                                {"Sound_Arrive", Form::Tick, "0", "1", "1"},
                                {"Sound_Start", Form::Sound, "2", "3", "3"},
                                {"Sound_Tell", Form::Sound, "0", "3", "3"},
                                {"IP", Form::Text, "127.0.0.1", "167.114.65.195", "167.114.65.195"},
                                {"Port", Form::Number, "6001", "5000", "5000"},
                                {"PreMove_OK", Form::Tick, "1", "0", "0"},
                                {"AutoQueen", Form::Tick, "1", "0", "0"},
                                {"Confirm_Resign", Form::Tick, "0", "1", "1"},
                                {"Chess_Set", Form::Number, "1", "0", "0"},
                                {"Mouse_Slip", Form::Number, "4", "0", "0"},
                                {"Drag_Mode", Form::White, "0", "-1", "0"},
                                {"Seek_Color", Form::Tick, "0", "1", "1"},
                                {"Seek_Off", Form::Tick, "0", "1", "1"},
                                {"PGN_Path", Form::Text, "/pgn", "", ""},
                                {"Game_Path", Form::Text, "/games", "", ""},
                                {"Warn_Time", Form::Number, "20", "10", "10"},
                                {"XP_Style", Form::Flag, "True", "False", "False"}};
    rows.insert(rows.end(), rest.begin(), rest.end());
    return rows;
}

// A hostile text, and what it is as a number or a flag, if it is one.
struct Hostile {
    std::string name; // of its test
    std::string text;
    std::optional<int> number;
    std::optional<bool> flag;
};

std::optional<std::string> readAs(Form form, const Hostile& hostile) {
    if (form == Form::Text || form == Form::Font) return hostile.text;
    if (form == Form::Flag) return hostile.flag ? std::optional(*hostile.flag ? "True" : "False") : std::nullopt;
    return hostile.number ? std::optional(std::to_string(*hostile.number)) : std::nullopt;
}

std::string afterOk(Form form, const std::string& value) {
    switch (form) {
    case Form::Font:
        return value.empty() ? "Fixedsys" : value;
    case Form::Tick:
        return value == "1" ? "1" : "0";
    case Form::Sound:
        return std::to_string(static_cast<unsigned>(std::stoi(value)) & 3U);
    case Form::White:
        return value == "0" ? "0" : "-1";
    default:
        return value;
    }
}

class HostileSettings : public OptionsRig {
protected:
    using Texts = std::map<std::string, std::string>;

    void fill() {
        values->texts.clear();
        for (const Row& row : rows) set(row.key, row.before);
    }
    // Start, options, OK, exit.
    void live() {
        begin();
        openOptions();
        hand.ok();
        end();
    }
    // `saved` gives what each row leads to.
    template <typename Saved>
    void expectSaved(Saved saved, const std::string& what) {
        for (const Row& row : rows) {
            const std::string expected = row.key == "Registry_OK" ? "Yes" : afterOk(row.form, saved(row));
            if (row.form == Form::Coordinate) continue;
            EXPECT_EQ(stored("Client", row.key), expected) << row.key << " with " << what;
        }
    }

    const std::vector<Row> rows = allRows();
};

// The program has the rest of its keys as it starts, once a text does not fit its key.
class HostileText : public HostileSettings, public testing::WithParamInterface<Hostile> {};

} // namespace

TEST_F(HostileSettings, AStoreFromBeforeIsSavedAsItWas) {
    fill();
    live();
    expectSaved([](const Row& row) { return row.before; }, "nothing changed");
}

TEST_F(HostileSettings, AnEmptyStoreGivesTheDefaults) {
    values->texts.clear();
    live();
    expectSaved([](const Row& row) { return row.absent; }, "an empty store");
}

TEST_F(HostileSettings, AKeyThatIsMissingHasItsDefaultAndTheOthersStay) {
    for (const Row& missing : rows) {
        fill();
        values->texts.erase({"Client", missing.key});
        live();
        expectSaved([&](const Row& row) { return row.key == missing.key ? row.absent : row.before; },
                    "no " + missing.key);
    }
}

TEST_P(HostileText, AKeyThatDoesNotTakeItEndsTheReading) {
    for (const Row& spoilt : rows) {
        fill();
        set(spoilt.key, GetParam().text);
        live();
        bool ended = false;
        expectSaved(
            [&](const Row& row) {
                if (row.key != spoilt.key) return ended ? row.start : row.before;
                const auto taken = readAs(row.form, GetParam());
                ended = !taken;
                return taken.value_or(row.start);
            },
            spoilt.key + "=" + GetParam().text);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, HostileText,
                         testing::Values(Hostile{"Empty", "", std::nullopt, std::nullopt},
                                         Hostile{"Word", "text", std::nullopt, std::nullopt},
                                         Hostile{"Huge", "99999999999", std::nullopt, true},
                                         Hostile{"Negative", "-1", -1, true}, Hostile{"Half", "2.5", 2, true},
                                         Hostile{"TheWordTrue", "True", std::nullopt, true},
                                         Hostile{"TwoNumbers", "12 ,7", std::nullopt, std::nullopt}),
                         [](const auto& spoilt) { return spoilt.param.name; });
