#pragma once

#include "base/observable.h"
#include "platform/pictures.h"

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <memory>

namespace gatehouse {

/// Shows a picture as large as there is room for, in its own proportions, in the screen's own points.
class PictureView : public QWidget {
    Q_OBJECT

public:
    /// The value must outlive the view.
    PictureView(Observable<std::shared_ptr<const Picture>>& picture, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The picture in the size that it is painted in; made anew only when that changes.
    const QPixmap& scaled();

    Observable<std::shared_ptr<const Picture>>& picture_;
    QPixmap scaled_;
};

}  // namespace gatehouse
