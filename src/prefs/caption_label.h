#pragma once

#include <QLabel>

/// A caption beside its control, its buddy: a click on the one is a click on the other.
class CaptionLabel final : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
};
