#pragma once

#include "window/rules/key_rules.h"

#include <QWidget>

#include <functional>
#include <vector>

class QPushButton;

namespace gatehouse {

/// All key buttons, laid out as on a keyboard with its number pad and a mouse. Arrow keys go from button to button, a
/// letter goes to its key.
class KeyBoard : public QWidget {
    Q_OBJECT

public:
    /// `press` is called with the button that is pressed.
    explicit KeyBoard(std::function<void(const KeyButton&)> press, QWidget* parent = nullptr);

    /// Disables the keys in use, enables the others and puts the focus on the first that can be pressed.
    void showKeysInUse(const KeyRules::KeysInUse& inUse);

    /// Takes the size that it needs, with smaller captions if it is too large for the room.
    void fitInto(const QSize& room);

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The focus has gone to this button by its own keys.
    void reached(QWidget* button);

protected:
    void changeEvent(QEvent* event) override;

private:
    /// What stands on the board, with its place in quarters of a key.
    struct Placed {
        QWidget* widget;
        QRect place;
    };
    struct KeyCap {
        QPushButton* button;
        const KeyButton& key;
    };

    QPushButton* makeButton(const KeyButton& key);
    void add(QWidget* widget, const QRect& place) { placed_.push_back({widget, place}); }
    void arrange();
    /// Keeps the captions of the keys in use readable: they are what a person looks for.
    void tone();
    void reach(QPushButton* button);
    /// The nearest button that can be pressed, in the direction of an arrow key; nothing at the edge.
    QPushButton* neighbour(const QWidget& from, int arrow) const;
    QPushButton* withCaption(const QString& typed) const;

    std::function<void(const KeyButton&)> press_;
    double fontScale_;  ///< of the captions, against the board's own font
    std::vector<KeyCap> caps_;
    std::vector<Placed> placed_;
};

}  // namespace gatehouse
