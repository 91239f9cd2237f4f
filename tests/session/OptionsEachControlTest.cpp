// Each control of the options dialog: changed by hand, it reaches at OK the running program, at the exit the store, and
// from there the next start; after Cancel only the three live boxes have changed anything.
#include "session/OptionsRig.h"
#include "settings/ClientKeys.h"

namespace {

// What the hand does, and the value of the key before and behind it. `from` is stored where that is not the default.
struct Control {
    std::string name;
    std::string key;
    std::string before;
    std::string after;
    std::function<void()> change;
    bool live = false;
    std::string from{};
};

std::vector<Control> texts() {
    const auto typed = [](const std::string& name, const std::string& key, const std::string& before,
                          const std::string& after, bool live = false) {
        return Control{name, key, before, after, [=] { OptionsHand::type(name, after); }, live};
    };
    std::vector<Control> controls{
        typed("txtHandle", "Handle", "", "fred"), typed("txtPassword", "Password", "", "s, \"x\""),
        typed("txtICS_IP", "IP", "127.0.0.1", "10.0.0.1", true), typed("txtPort", "Port", "5000", "6123", true),
        typed("txtWarn", "Warn_Time", "10", "25", true)};
    for (int index = 0; index <= 9; ++index) {
        const std::string digit = std::to_string(index);
        controls.push_back(typed("txtTell(" + digit + ")", "Tell_" + digit, "", "tell " + digit));
    }
    return controls;
}

void addClicks(std::vector<Control>& controls) {
    const auto clicked = [&](const std::string& name, const std::string& key, const std::string& before,
                             const std::string& after, const std::string& from = {}) {
        controls.push_back({name, key, before, after, [=] { OptionsHand::click(name); }, false, from});
    };
    clicked("chkSounds", "Sound_On", "1", "0");
    clicked("chkArrival", "Sound_Arrive", "1", "0");
    for (const auto& [box, choices, key] : {std::tuple{"chkMoves", "optMoves", "Sound_Move"},
                                            {"chkGame", "optStart", "Sound_Start"},
                                            {"chkTell", "optTell", "Sound_Tell"}}) {
        clicked(box, key, "3", "2");
        clicked(std::string(choices) + "(0)", key, "3", "1");
        clicked(std::string(choices) + "(1)", key, "1", "3", "1");
    }
    clicked("chkPreMove", "PreMove_OK", "0", "1");
    clicked("chkDrag", "Seek_Color", "1", "0");
    clicked("chkQueen", "AutoQueen", "0", "1");
    clicked("chkCnfResign", "Confirm_Resign", "1", "0");
    clicked("chkSeekOff", "Seek_Off", "1", "0");
    clicked("optSeekColors(0)", "Drag_Mode", "-1", "0");
    clicked("optSeekColors(1)", "Drag_Mode", "0", "-1", "0");
    for (const auto& [button, key, before] : {std::tuple{"cmdMain", "Color_Main", "33023"},
                                              {"cmdBkGn", "Color_Background", "0"},
                                              {"cmdBar", "Color_Bar_Backgnd", "16777215"},
                                              {"cmdTell", "Color_Tell", "255"},
                                              {"cmdCopy", "Color_Copy", "14862761"},
                                              {"cmdType", "Color_Type", "0"},
                                              {"cmdShout", "Color_Shout", "16777215"}}) {
        clicked(button, key, before, "1193046");
    }
}

void addLists(std::vector<Control>& controls) {
    const auto chosen = [&](const std::string& name, int index, const std::string& key, const std::string& before,
                            const std::string& after) {
        controls.push_back({name, key, before, after, [=] { OptionsHand::choose(name, index); }});
    };
    for (int index = 1; index <= 11; ++index) chosen("cboSlip", index, "Mouse_Slip", "0", std::to_string(index));
    chosen("cboDefaults", 1, "Color_Copy", "14862761", "14862761");
    chosen("cboDefaults", 2, "Color_Background", "0", "12648447");
    chosen("cboDefaults", 3, "Color_Background", "0", "16777215");
    chosen("cboDefaults", 4, "Main_Font", "", "Fixedsys");
    chosen("cboDefaults", 5, "Main_Font", "", "Lucida COnsole");
}

std::vector<Control> everyControl() {
    std::vector<Control> controls = texts();
    addClicks(controls);
    addLists(controls);
    return controls;
}

// Nobody looks at the boards here.
class OptionsEachControl : public OptionsRig {
protected:
    OptionsEachControl() {
        roads.openBoard = [] {};
        boxes.colour = [](QWidget*, std::int32_t) { return std::optional<std::int32_t>(0x123456); };
    }
    ~OptionsEachControl() override { delete loadedWindow<frmOptions>(); }

    void prepare(const Control& control) {
        values->texts.clear();
        set("Use_Timeseal", "False");
        set("IP", "127.0.0.1");
        if (!control.from.empty()) set(control.key, control.from);
        begin();
        ASSERT_EQ(running(control.key), control.before) << control.name;
        openOptions();
        control.change();
        EXPECT_EQ(running(control.key), control.live ? control.after : control.before) << control.name << ", before OK";
    }
    // What the program works with.
    std::string running(const std::string& name) const {
        if (name == "Handle") return client->session.logOn.handle;
        if (name == "Password") return client->session.logOn.password;
        for (const ClientKey& key : clientKeys()) {
            if (key.name == name) return heldText(key, client->settings);
        }
        throw std::logic_error(name);
    }
};

} // namespace

TEST_F(OptionsEachControl, ChangedAndOkReachesTheProgramTheStoreAndTheNextStart) {
    for (const Control& control : everyControl()) {
        prepare(control);
        hand.ok();
        EXPECT_EQ(running(control.key), control.after) << control.name;
        EXPECT_EQ(stored("Client", control.key),
                  control.from.empty() && control.key != "IP" ? "(absent)" : control.before)
            << control.name << ": OK writes nothing";
        end();
        EXPECT_EQ(stored("Client", control.key), control.after) << control.name;
        begin();
        EXPECT_EQ(running(control.key), control.after) << control.name << ", the next start";
        end();
    }
}

TEST_F(OptionsEachControl, CancelAfterEachLeavesAllButTheThreeLiveBoxes) {
    for (const Control& control : everyControl()) {
        prepare(control);
        hand.cancel();
        const std::string& expected = control.live ? control.after : control.before;
        EXPECT_EQ(running(control.key), expected) << control.name;
        end();
        EXPECT_EQ(stored("Client", control.key), expected) << control.name;
    }
}

TEST_F(OptionsEachControl, TheTableNamesEachSettingOfTheDialog) {
    std::vector<std::string> named;
    for (const Control& control : everyControl()) named.push_back(control.key);
    for (const char* key : {"Handle",     "Password",   "Color_Main",   "Color_Background", "Color_Bar_Backgnd",
                            "Color_Tell", "Color_Copy", "Color_Type",   "Color_Shout",      "Main_Font",
                            "Sound_On",   "Sound_Move", "Sound_Arrive", "Sound_Start",      "Sound_Tell",
                            "IP",         "Port",       "PreMove_OK",   "AutoQueen",        "Confirm_Resign",
                            "Mouse_Slip", "Drag_Mode",  "Seek_Color",   "Seek_Off",         "Warn_Time"}) {
        EXPECT_NE(std::ranges::find(named, key), named.end()) << key;
    }
}
