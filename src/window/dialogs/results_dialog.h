#pragma once

#include "window/dialogs/form_dialog.h"

class QLayout;

namespace gatehouse {

class ChartView;
class ResultsForm;

/// The dialog `q3results`: the figures of benchmarks, as a chart, a table and a comparison.
class ResultsDialog : public FormDialog {
    Q_OBJECT

public:
    /// The form must outlive the dialog.
    explicit ResultsDialog(ResultsForm& form, QWidget* parent = nullptr);

    void reject() override;

protected:
    void comeUp() override;

private:
    QLayout* makeRuns();
    QWidget* makeFigures();
    QWidget* makeComparison();
    QLayout* makeButtons();

    ResultsForm& form_;
    ChartView* chart_ = nullptr;
};

}  // namespace gatehouse
