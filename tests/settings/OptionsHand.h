// The options dialog as its user works it: controls by name, with mouse and keys.
#pragma once

#include "platform/LoadedWindow.h"
#include "settings/frmOptions.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCoreApplication>
#include <QTabWidget>
#include <QTest>

#include <string>

// Of the dialog that is loaded.
struct OptionsHand {
    static frmOptions& dialog() { return *loadedWindow<frmOptions>(); }

    template <typename Control = QWidget>
    static Control& part(const std::string& name) {
        return *dialog().findChild<Control*>(QString::fromStdString(name));
    }

    // The control, with its page in front.
    template <typename Control = QWidget>
    static Control& shown(const std::string& name) {
        auto& control = part<Control>(name);
        auto& pages = *dialog().findChild<QTabWidget*>();
        for (int page = 0; page < pages.count(); ++page) {
            if (pages.widget(page)->isAncestorOf(&control)) pages.setCurrentIndex(page);
        }
        return control;
    }

    static void click(const std::string& name) {
        auto& control = shown(name);
        const QPoint onItsMark(qMin(8, control.width() / 2), control.height() / 2);
        QTest::mouseClick(&control, Qt::LeftButton, {}, onItsMark);
    }
    // In place of what stands there.
    static void type(const std::string& name, const std::string& text) {
        auto& box = shown(name);
        QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
        if (text.empty()) QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, QString::fromStdString(text));
    }
    // From the list that drops down.
    static void choose(const std::string& name, int index) {
        auto& box = shown<QComboBox>(name);
        box.showPopup();
        QTest::keyClick(box.view(), Qt::Key_Home);
        for (int down = 0; down < index; ++down) QTest::keyClick(box.view(), Qt::Key_Down);
        QTest::keyClick(box.view(), Qt::Key_Return);
    }
    static void ok() { click("cmdOK"); }
    static void cancel() { click("cmdCancel"); }

    // Of a label, as 0xBBGGRR, and of what it stands on.
    static std::int32_t textColor(const char* name) { return value(name, QPalette::WindowText); }
    static std::int32_t ground(const char* name) { return value(name, QPalette::Window); }
    static std::string fontName(const char* name) { return part(name).font().families().value(0).toStdString(); }

private:
    static std::int32_t value(const char* name, QPalette::ColorRole role) {
        const QColor color = part(name).palette().color(role);
        return color.red() | color.green() << 8 | color.blue() << 16;
    }
};
