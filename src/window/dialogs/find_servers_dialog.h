#pragma once

#include "window/dialogs/form_dialog.h"

class QLayout;

namespace gatehouse {

class Favourites;
class ServerSearch;

/// The form `q3find`: where to look for servers, and what was found.
class FindServersDialog : public FormDialog {
    Q_OBJECT

public:
    FindServersDialog(ServerSearch& search, const Favourites& favourites, QWidget* parent);
    void reject() override;

protected:
    void comeUp() override;

private:
    QLayout* makeQuestion();
    QWidget* makeFound(const Favourites& favourites);
    QLayout* makeButtons();

    ServerSearch& search_;
};

}  // namespace gatehouse
