#pragma once

#include "core/colours.h"

#include <QAbstractButton>

/// A button that shows a colour; its owner says what a press does. A system colour is shown as it is now and
/// kept as what it is.
class Swatch final : public QAbstractButton
{
    Q_OBJECT

public:
    explicit Swatch(QWidget *parent = nullptr);

    [[nodiscard]] ColourValue colour() const { return m_colour; }
    void setColour(ColourValue colour);
    /// The colour that is seen.
    [[nodiscard]] ColourValue shownColour() const;

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    ColourValue m_colour = 0;
};
