#pragma once

#include "core/colours.h"
#include "skin/cDIBSection.h"

#include <QAbstractButton>
#include <QTimer>

/// The states a button shows, and what SetSkin takes. The numbers are the interface.
enum class ButtonState : int
{
    Normal = 0,
    Disabled = 1,
    Clicked = 2,
    Over = 3, ///< several bitmaps make a sequence
    HasFocus = 4,
    Overlay = 5, ///< a picture in the middle of every state
    Mask = 6,    ///< the button's shape: white is cut away
    Down = 7,    ///< latched
};

/// Where the sequence of Over frames stands. Frames count from 1.
struct OverSequence
{
    int frames = 0;
    int current = 1;
    bool isBackwards = false;
    bool isPausing = false;
    int elapsed = 0; ///< milliseconds since the frame changed

    int frameDelay = 50; ///< milliseconds
    int pause = 0;       ///< milliseconds between two runs
    bool reverses = true;

    void restart();
    /// Lets time go by. True when another frame is to be shown.
    bool advance(int milliseconds);
};

/// A button that is drawn from the skin's bitmaps: one a state, an optional overlay on all of them, an
/// optional shape, and a caption with a shadow. The bitmaps are handed over a state at a time, Normal first,
/// and put together in one strip by FinishSkin(), which gives the button its size; the overlay comes after
/// that. Until then it looks like the desktop's own buttons.
class SkinButton final : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(bool Down READ Down WRITE setLatched)

public:
    explicit SkinButton(QWidget *parent = nullptr);
    ~SkinButton() override;

    /// No bitmap changes nothing. On a finished button only Normal, which begins a new skin, and Overlay.
    void SetSkin(ButtonState state, const SkinBitmap &bitmap);
    void FinishSkin();
    /// Forgets a finished skin.
    void ClearSkin();
    [[nodiscard]] bool isFinished() const { return m_isFinished; }

    /// The caption; "&" marks the access key, which without one is the first character.
    [[nodiscard]] QString Caption() const { return m_caption; }
    void setCaption(const QString &caption);

    /// Latched: shown where the skin has a picture for it.
    [[nodiscard]] bool Down() const { return isChecked(); }
    void setLatched(bool down);

    /// What is shown now.
    [[nodiscard]] ButtonState State() const { return m_shown; }

    /// The picture of a state as it is shown, overlay and caption included, for this device pixel ratio.
    [[nodiscard]] QImage picture(ButtonState state, qreal ratio) const;
    /// The strip's frame of a state; of Over the frame counted from 1. Null when the skin has none.
    [[nodiscard]] QRect frame(ButtonState state, int overFrame = 1) const;
    [[nodiscard]] const cDIBSection &strip() const { return m_strip; }

    [[nodiscard]] QSize sizeHint() const override;

    ColourValue ForeColour = 0x80000012; ///< the system's button text
    ColourValue ForeShadowColour = 0xFFFFFF;
    ColourValue DisabledForeColour = 0xC0C0C0;
    ColourValue DisabledShadowColour = 0xFFFFFF;
    /// noOverlayMaskColour: the overlay is copied as it is. Else the colour of its first pixel is
    /// transparent.
    ColourValue OverlayMaskColour = noOverlayMaskColour;
    QPoint ClickTextOffset; ///< the caption's way while pressed, in pixels
    OverSequence Sequence;

    static constexpr ColourValue noOverlayMaskColour = 0xEFFFFFFF;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void nextCheckState() override {} // latching is the owner's

private:
    void begin(const cDIBSection &normal);
    void addOverFrame(const cDIBSection &bitmap);
    void setOverlay(const SkinBitmap &bitmap);
    void redraw();
    void setOver(bool isOver);
    void animate();
    [[nodiscard]] ButtonState chosenState() const;
    [[nodiscard]] bool has(ButtonState state) const;
    [[nodiscard]] QRect shownFrame(ButtonState state) const;
    void paintState(QPainter &painter, ButtonState state) const;
    void paintCaption(QPainter &painter, ButtonState state) const;
    void paintPlain();

    cDIBSection m_strip;    ///< six frames wide while it is built, then exactly as wide as its frames
    cDIBSection m_sequence; ///< the Over frames while the strip is built
    SkinBitmap m_overlay;
    int m_frameWidth = 0;
    unsigned m_present = 0; ///< a bit for each state that has a picture
    bool m_isFinished = false;
    bool m_isOver = false;
    ButtonState m_shown = ButtonState::Normal;
    QString m_caption;
    QTimer tmrHittest;
};
