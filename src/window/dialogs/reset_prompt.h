#pragma once

#include "base/log.h"
#include "base/observable.h"

#include <QDialog>

#include <functional>
#include <string>

class QPushButton;

namespace gatehouse {

/// The dialog `q3resetprompt`: asks whether all tabs are to be reset or the current one.
class ResetPrompt : public QDialog {
    Q_OBJECT

public:
    /// `chosen` gets "current", "all", or an empty text. Log and key must outlive the prompt.
    ResetPrompt(Log& log, const Observable<std::string>& tabKey, std::function<void(const std::string&)> chosen,
                QWidget* parent = nullptr);

    /// Opens it, with the focus on the button that does nothing.
    void ask();
    void reject() override { answer("", "user canceled tab reset"); }

private:
    QPushButton* makeButton(const QString& name, const QString& text);
    void answer(const std::string& what, const std::string& report);

    Log& log_;
    const Observable<std::string>& tabKey_;
    std::function<void(const std::string&)> chosen_;
    QPushButton* cancel_ = nullptr;
};

}  // namespace gatehouse
