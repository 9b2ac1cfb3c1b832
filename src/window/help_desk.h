#pragma once

#include <QObject>

#include <memory>
#include <string>

class QHelpEvent;
class QWidget;

namespace gatehouse {

class HelpRules;
class HelpWindow;

/// F1 anywhere in the program, and What's This. It needs no main window: a first start has its questions before.
class HelpDesk : public QObject {
    Q_OBJECT

public:
    /// The rules must outlive the desk.
    explicit HelpDesk(HelpRules& rules);
    ~HelpDesk() override;

    /// What the help calls the control that a widget is or is a part of; empty if it tells nothing of it.
    std::string topicOf(const QWidget* widget) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void helpOn(const QWidget& asked);
    bool showWhatsThis(QWidget& widget, const QHelpEvent& event);

    HelpRules& rules_;
    std::unique_ptr<HelpWindow> window_;
};

}  // namespace gatehouse
