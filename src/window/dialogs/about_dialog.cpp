#include "window/dialogs/about_dialog.h"

#include "base/text.h"
#include "platform/qt/native_paths.h"
#include "platform/qt/shown_text.h"
#include "startup/gatehouse.h"
#include "window/rules/commands.h"
#include "window/widgets/command_views.h"
#include "window/widgets/icons.h"
#include "window/widgets/link_button.h"

#include <QDesktopServices>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

namespace gatehouse {

namespace {

constexpr int kPictureSide = 96;
constexpr int kGap = 12;
constexpr int kLicenceLetters = 64;
constexpr int kLicenceLines = 11;
constexpr double kTitleSize = 1.8;  // times the usual font

}  // namespace

AboutDialog::AboutDialog(Gatehouse& program, QWidget* parent)
    : FormDialog("q3about", program.rules.q3about, parent),
      program_(program),
      licence_(new QPlainTextEdit(shown(trim(program.licence())), this)) {
    setWindowTitle(shownTitle(dialogInfo("q3about").title));

    auto* picture = new QLabel(this);
    picture->setObjectName("q3aboutpicture");
    picture->setAccessibleName(tr("Picture of a gatehouse"));
    picture->setPixmap(icon("gatehouse").pixmap(QSize(kPictureSide, kPictureSide), devicePixelRatioF()));

    auto* texts = new QVBoxLayout;
    texts->setSpacing(kGap / 2);
    texts->addWidget(makeText("q3title", "Gatehouse", kTitleSize, true));
    texts->addWidget(makeText("q3version", "Version: " + shown(program_.run.VersionString), 1, false));
    texts->addWidget(makeText("q3purpose", tr("Settings and servers for Quake 3: Arena"), 1, false));
    auto* links = new QHBoxLayout;
    links->setSpacing(kGap);
    const std::pair<const char*, void (AboutDialog::*)()> kLinks[] = {
        {"Hlink1", &AboutDialog::openHomePage},
        {"Hlink2", &AboutDialog::toggleLicence},
        {"q3aboutfolder", &AboutDialog::openProgramFolder}};
    for (const auto& [name, follow] : kLinks) {
        QPushButton* link = makeLinkButton(name, this);
        describe(*link, commandInfo(name));
        connect(link, &QPushButton::clicked, this, follow);
        links->addWidget(link);
    }
    links->addStretch(1);
    texts->addLayout(links);

    auto* upper = new QHBoxLayout;
    upper->setSpacing(2 * kGap);
    upper->addWidget(picture);
    upper->addLayout(texts, 1);

    licence_->setObjectName("q3licence");
    licence_->setAccessibleName(tr("Licence"));
    licence_->setReadOnly(true);
    licence_->setTabChangesFocus(true);
    licence_->setMinimumSize(kLicenceLetters * fontMetrics().averageCharWidth(),
                             kLicenceLines * fontMetrics().lineSpacing());
    licence_->hide();

    QPushButton* ok = makeCommandButton("q3aboutOK", this);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &AboutDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2 * kGap, 2 * kGap, 2 * kGap, kGap);
    column->setSpacing(kGap);
    column->addLayout(upper);
    column->addWidget(licence_, 1);
    column->addWidget(ok, 0, Qt::AlignRight);
    ok->setFocus();
    followForm();
}

QLabel* AboutDialog::makeText(const QString& name, const QString& text, double size, bool bold) {
    auto* label = new QLabel(text, this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * size);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

void AboutDialog::reject() { program_.rules.q3aboutOK_Click(); }

void AboutDialog::openHomePage() {
    if (!QDesktopServices::openUrl(QUrl(GATEHOUSE_HOMEPAGE)))
        program_.log.logEvent("Can't open the page " GATEHOUSE_HOMEPAGE, true);
}

void AboutDialog::openProgramFolder() {
    const std::string native = resolveExisting(program_.run.AppDir).value_or(toNativePath(program_.run.AppDir));
    const QString folder = QFile::decodeName(QByteArray::fromStdString(native));
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        program_.log.logEvent("Can't open the folder " + program_.run.AppDir, true);
}

void AboutDialog::toggleLicence() {
    licence_->setVisible(!licence_->isVisible());
    adjustSize();
}

}  // namespace gatehouse
