#pragma once

#include "base/observable.h"

#include <QPlainTextEdit>

#include <string>

namespace gatehouse {

/// The panel `q3console`: the log of this run, its last line in view. On show while `onShow` holds.
class ConsolePanel : public QPlainTextEdit {
    Q_OBJECT

public:
    ConsolePanel(Observable<std::string>& text, Observable<bool>& onShow, QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void refresh();

    Observable<std::string>& text_;
};

}  // namespace gatehouse
