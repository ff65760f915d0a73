#pragma once

#include "platform/skin_values.h"
#include "skin/cDIBSection.h"

#include <QAbstractButton>
#include <QTimer>

#include <array>
#include <vector>

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

/// The colours of a button's caption; those of a button without a skin to begin with.
struct ButtonColours
{
    ColourValue ForeColour = 0x80000012; ///< the system's button text
    ColourValue ForeShadowColour = 0xFFFFFF;
    ColourValue DisabledForeColour = 0xC0C0C0;
    ColourValue DisabledShadowColour = 0xFFFFFF;
};

/// A button that is drawn from the skin's bitmaps: one a state, an optional overlay on all of them, an
/// optional shape, and a caption with a shadow. The bitmaps are handed over a state at a time, Normal first,
/// and put together in one strip by FinishSkin(), which gives the button its size; the overlay comes after
/// that. Until then it looks like the desktop's own buttons. Whether it is latched is the owner's to say.
class SkinButton final : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(bool Down READ Down WRITE setLatched)

public:
    explicit SkinButton(QWidget *parent = nullptr);
    ~SkinButton() override;

    /// No bitmap, or one of more than 1,024 pixels in either direction, changes nothing. On a finished button
    /// only Normal, which begins a new skin, and Overlay.
    void SetSkin(ButtonState state, const SkinBitmap &bitmap);
    void FinishSkin();
    /// Forgets a finished skin.
    void ClearSkin();
    [[nodiscard]] bool isFinished() const { return m_isFinished; }

    /// The caption; "&" marks the access key, which without one is the first character.
    [[nodiscard]] QString Caption() const { return m_caption; }
    void setCaption(const QString &caption);
    /// What the skin prints on the button instead; where that is empty its own caption comes back.
    void setSkinCaption(const QString &caption);

    /// Latched: shown where the skin has a picture for it.
    [[nodiscard]] bool Down() const { return m_isLatched; }
    void setLatched(bool down);

    /// Whether it is one that latches: it is, or could show that it is.
    [[nodiscard]] bool canLatch() const { return m_isLatched || has(ButtonState::Down); }

    /// What is shown now.
    [[nodiscard]] ButtonState State() const { return m_shown; }

    /// The picture of a state as it is shown, overlay and caption included, for this device pixel ratio.
    [[nodiscard]] QImage picture(ButtonState state, qreal ratio) const;
    /// The strip's frame of a state; of Over the frame counted from 1. Null when the skin has none.
    [[nodiscard]] QRect frame(ButtonState state, int overFrame = 1) const;
    [[nodiscard]] const cDIBSection &strip() const { return m_strip; }

    [[nodiscard]] QSize sizeHint() const override;

    ButtonColours Colours;
    /// noColour: the overlay is copied as it is. Else the colour of its first pixel is transparent.
    ColourValue OverlayMaskColour = noColour;
    QPoint ClickTextOffset; ///< the caption's way while pressed, in pixels
    OverSequence Sequence;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void begin(const SkinBitmap &normal);
    [[nodiscard]] cDIBSection makeStrip() const;
    void setOverlay(const SkinBitmap &bitmap);
    void showCaption(const QString &caption);
    bool takeState();
    void redraw();
    void setOver(bool isOver);
    void animate();
    [[nodiscard]] ButtonState chosenState() const;
    [[nodiscard]] bool has(ButtonState state) const;
    [[nodiscard]] QRect shownFrame(ButtonState state) const;
    void paintState(QPainter &painter, ButtonState state) const;
    void paintCaption(QPainter &painter, ButtonState state) const;
    void paintPlain();
    void paintFocusLine();

    cDIBSection m_strip;                    ///< every frame, side by side, of a finished skin
    std::array<SkinBitmap, 8> m_pictures;   ///< by state, while a skin is built
    std::vector<SkinBitmap> m_overPictures; ///< likewise
    SkinBitmap m_overlay;
    QSize m_frameSize;
    unsigned m_present = 0; ///< a bit for each state that has a picture
    bool m_isFinished = false;
    bool m_isOver = false;
    ButtonState m_shown = ButtonState::Normal;
    bool m_isLatched = false;
    QString m_caption;    ///< as it is shown
    QString m_ownCaption; ///< without a skin
    QTimer tmrHittest;
};
