#include "window/scan_window.h"

#include "base/scan_view.h"
#include "platform/qt/shown_text.h"
#include "window/widgets/busy_sign.h"
#include "window/widgets/command_views.h"
#include "window/widgets/elided_label.h"
#include "window/widgets/follow.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

namespace gatehouse {

namespace {

constexpr int kGap = 16;
constexpr int kWidth = 480;
constexpr int kBarSteps = 1000;

ElidedLabel* makeText(const QString& name, Observable<std::string>& text, QWidget* parent) {
    auto* label = new ElidedLabel(Qt::ElideMiddle, parent);
    label->setObjectName(name);
    follow(label, text, [label](const std::string& now) { label->setText(shown(now)); });
    return label;
}

}  // namespace

ScanWindow::ScanWindow(ScanView& view, int delay) : view_(view) {
    setObjectName(shown(view.q3scan.name));
    setWindowTitle(shown(view.caption));
    setWindowModality(Qt::ApplicationModal);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kGap, kGap, kGap, kGap);
    column->setSpacing(kGap);
    addTexts(*column);
    addProgress(*column);
    setFixedSize(kWidth, sizeHint().height());

    delay_.setSingleShot(true);
    delay_.setInterval(delay);
    connect(&delay_, &QTimer::timeout, this, &ScanWindow::comeUp);
    listen(this, view.q3scan.changed, [this] {
        delay_.stop();
        if (!view_.q3scan.get()) return hide();
        delay_.interval() == 0 ? comeUp() : delay_.start();
    });
}

void ScanWindow::addTexts(QBoxLayout& column) {
    auto* texts = new QVBoxLayout;
    texts->addWidget(makeText(shown(view_.names.place), view_.place, this));
    texts->addWidget(makeText(shown(view_.names.entry), view_.entry, this));
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addWidget(new BusySign(this));
    row->addLayout(texts, 1);
    column.addLayout(row);
}

void ScanWindow::addProgress(QBoxLayout& column) {
    bar_ = new QProgressBar(this);
    bar_->setObjectName(shown(view_.names.progress));
    bar_->setAccessibleName(tr("Progress"));
    bar_->setRange(0, kBarSteps);
    bar_->setTextVisible(false);
    stop_ = makeCommandButton("scanstop", this);
    stop_->setDefault(true);
    connect(stop_, &QPushButton::clicked, this, &ScanWindow::stop);
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addWidget(bar_, 1);
    row->addWidget(stop_);
    column.addLayout(row);
    follow(this, view_.progress, [this](double) { showProgress(); });
    listen(this, view_.extent.changed, [this] { showProgress(); });
}

void ScanWindow::showProgress() {
    const double extent = view_.extent.get();
    const double share = extent > 0 ? std::clamp(view_.progress.get() / extent, 0.0, 1.0) : 0;
    bar_->setValue(static_cast<int>(share * kBarSteps));
}

void ScanWindow::comeUp() {
    stop_->setEnabled(!view_.stopped());
    stop_->setFocus();
    create();
    const QWidget* front = QApplication::activeWindow();
    windowHandle()->setTransientParent(front ? front->windowHandle() : nullptr);
    show();
}

void ScanWindow::stop() {
    view_.stop_Click();
    stop_->setEnabled(false);
}

}  // namespace gatehouse
