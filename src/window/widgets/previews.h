#pragma once

#include "window/rules/player_rules.h"

#include <QSvgRenderer>
#include <QWidget>

namespace gatehouse {

// The previews of the Player tab, on a dark ground as the game's own. What they follow must outlive them.

/// The coloured name, one character a cell.
class NamePreview : public QWidget {
public:
    explicit NamePreview(Observable<NameCells>& nc);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Observable<NameCells>& nc_;
};

/// The picture of a crosshair; nothing but the ground for a number without one.
class CrosshairPreview : public QWidget {
public:
    explicit CrosshairPreview(Observable<int>& chpic);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSvgRenderer picture_;
    bool there_ = false;
};

/// A patch of colour.
class ColourPreview : public QWidget {
public:
    explicit ColourPreview(Observable<Colour>& fxpreview);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Observable<Colour>& fxpreview_;
};

}  // namespace gatehouse
