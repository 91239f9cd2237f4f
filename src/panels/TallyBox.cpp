// A box of the self check.
#include "panels/TallyBox.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionFrame>

namespace {

class TallyAccess : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit TallyAccess(TallyBox* box) : QAccessibleWidget(box, QAccessible::SpinBox), box_(box) {}

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
        return box_->tally() ? box_->text() : QObject::tr("empty");
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QVariant currentValue() const override { return box_->tally().value_or(0); }
    void setCurrentValue(const QVariant& value) override { box_->take(value.toInt()); }
    QVariant maximumValue() const override { return std::numeric_limits<std::int32_t>::max(); }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return 1; }

private:
    TallyBox* box_;
};

} // namespace

TallyBox::TallyBox(SelfCheckSheet& sheet, SelfCheckSheet::Tally& tally, const QString& name, QWidget* parent)
    : QLineEdit(parent), sheet_(sheet), tally_(tally) {
    QAccessible::registerAccessibleInterface(new TallyAccess(this)); // goes with the box
    setAccessibleName(name);
    setReadOnly(true);
    setAlignment(Qt::AlignRight);
    setCursor(Qt::ArrowCursor);
    setContextMenuPolicy(Qt::PreventContextMenu); // the right button counts
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void TallyBox::take(int number) {
    sheet_.take(tally_, number);
    showTally();
}

void TallyBox::showTally() {
    setText(tally_ ? QString::number(*tally_) : QString());
    QAccessibleValueChangeEvent event(this, tally_.value_or(0));
    QAccessible::updateAccessibility(&event);
}

QSize TallyBox::sizeHint() const {
    QStyleOptionFrame option;
    initStyleOption(&option);
    const int margin = 2 * fontMetrics().horizontalAdvance(u'0') / 2;
    const QSize text(fontMetrics().horizontalAdvance(QStringLiteral("0000")) + margin, fontMetrics().height());
    const int width = style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, this).width();
    return {width, QLineEdit::sizeHint().height()};
}

void TallyBox::mousePressEvent(QMouseEvent* event) {
    sheet_.press(tally_, event->button() == Qt::LeftButton);
    showTally();
}

void TallyBox::keyPressEvent(QKeyEvent* event) {
    if (!answerKey(*event)) {
        event->ignore();
        return;
    }
    showTally();
}

bool TallyBox::answerKey(const QKeyEvent& event) {
    const int key = event.key();
    if (key >= Qt::Key_0 && key <= Qt::Key_9) {
        sheet_.type(tally_, key - Qt::Key_0);
    } else if (key == Qt::Key_Up || key == Qt::Key_Down) {
        sheet_.press(tally_, key == Qt::Key_Up);
    } else if (key == Qt::Key_Backspace) {
        sheet_.eraseDigit(tally_);
    } else if (key == Qt::Key_Delete) {
        sheet_.empty(tally_);
    } else {
        return false;
    }
    return true;
}
