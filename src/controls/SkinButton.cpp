#include "controls/SkinButton.h"

#include "platform/text_looks.h"
#include "skin/aligned_painter.h"
#include "skin/cDIBSectionRgn2.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

#include <cmath>

namespace {

constexpr int hitTestInterval = 25; // milliseconds
constexpr int buildingFrames = 6;
constexpr int mostOverFrames = 16;
constexpr qint32 cutAwayByMask = 0xFFFFFF;

/// The states whose frames stand before the Over frames in a finished strip, in their order, and where each
/// stands while the strip is built.
struct StripPlace
{
    ButtonState state;
    int building;
};
constexpr std::array stripPlaces = {StripPlace{ButtonState::Clicked, 1}, StripPlace{ButtonState::Disabled, 2},
                                    StripPlace{ButtonState::HasFocus, 3}, StripPlace{ButtonState::Down, 4}};

constexpr unsigned bit(ButtonState state)
{
    return 1U << static_cast<unsigned>(state);
}

/// Null when the caption gives none.
QChar accessCharacter(QStringView caption)
{
    const qsizetype mark = caption.indexOf(u'&');
    const qsizetype place = mark < 0 ? 0 : mark + 1;
    return place < caption.size() && caption[place] != u'&' ? caption[place] : QChar();
}

} // namespace

void OverSequence::restart()
{
    current = 1;
    isBackwards = false;
    isPausing = false;
    elapsed = 0;
}

bool OverSequence::advance(int milliseconds)
{
    elapsed += milliseconds;
    if (elapsed < frameDelay || (isPausing && elapsed < pause)) {
        return false;
    }
    elapsed = 0;
    isPausing = false;
    if (current == frames) {
        if (reverses) {
            isBackwards = true;
        } else {
            isPausing = true;
            current = 0;
        }
    }
    current += isBackwards ? -1 : 1;
    if (current == 0 && isBackwards) {
        isBackwards = false;
        current = 1;
        isPausing = true;
    }
    return true;
}

SkinButton::SkinButton(QWidget *parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    tmrHittest.setInterval(hitTestInterval);
    connect(&tmrHittest, &QTimer::timeout, this, &SkinButton::animate);
    connect(this, &QAbstractButton::pressed, this, &SkinButton::redraw);
    connect(this, &QAbstractButton::released, this, &SkinButton::redraw);
    connect(this, &QAbstractButton::toggled, this, &SkinButton::redraw);
}

SkinButton::~SkinButton() = default;

void SkinButton::SetSkin(ButtonState state, const SkinBitmap &bitmap)
{
    if (bitmap == nullptr || bitmap->isEmpty()) {
        return;
    }
    if (state == ButtonState::Normal) {
        begin(*bitmap);
    } else if (state == ButtonState::Overlay) {
        setOverlay(bitmap);
    } else if (m_isFinished || m_frameWidth == 0) {
        return;
    } else if (state == ButtonState::Over) {
        addOverFrame(*bitmap);
    } else if (state == ButtonState::Mask) {
        m_present |= bit(state);
        setMask(regionFromDIB(*bitmap, cutAwayByMask));
    } else {
        const auto *place = std::ranges::find(stripPlaces, state, &StripPlace::state);
        if (place != stripPlaces.end()) {
            m_present |= bit(state);
            m_strip.LoadPictureBlt(*bitmap, {place->building * m_frameWidth, 0},
                                   QRect(0, 0, m_frameWidth, bitmap->Height()));
        }
    }
}

void SkinButton::begin(const cDIBSection &normal)
{
    ClearSkin();
    m_present = 0;
    Sequence.frames = 0;
    m_sequence.ClearUp();
    m_frameWidth = normal.Width();
    m_strip.Create(buildingFrames * m_frameWidth, normal.Height());
    m_strip.LoadPictureBlt(normal, {});
}

void SkinButton::addOverFrame(const cDIBSection &bitmap)
{
    if (Sequence.frames == mostOverFrames) {
        return;
    }
    m_present |= bit(ButtonState::Over);
    if (m_sequence.isEmpty()) {
        m_sequence.Create(mostOverFrames * m_frameWidth, m_strip.Height());
    }
    m_sequence.LoadPictureBlt(bitmap, {m_frameWidth * Sequence.frames, 0},
                              QRect(0, 0, m_frameWidth, bitmap.Height()));
    ++Sequence.frames;
}

/// Of an overlay whose first pixel is transparent by itself no colour is taken away.
void SkinButton::setOverlay(const SkinBitmap &bitmap)
{
    if (!m_isFinished) {
        return;
    }
    m_overlay = bitmap;
    const bool isTransparent = qAlpha(bitmap->image().pixel(0, 0)) == 0;
    if (OverlayMaskColour != noOverlayMaskColour && !isTransparent) {
        OverlayMaskColour = static_cast<ColourValue>(bitmap->GetPixel(0, 0));
        auto keyed = std::make_shared<cDIBSection>();
        keyed->Create(bitmap->Width(), bitmap->Height());
        keyed->TransparentBlt(*bitmap, {}, OverlayMaskColour);
        m_overlay = std::move(keyed);
    }
    update();
}

void SkinButton::FinishSkin()
{
    if (m_isFinished || m_frameWidth == 0) {
        return;
    }
    m_isFinished = true;
    int frames = 1 + Sequence.frames;
    for (const StripPlace &place : stripPlaces) {
        frames += has(place.state) ? 1 : 0;
    }
    const QSize size(m_frameWidth, m_strip.Height());
    cDIBSection strip;
    strip.Create(frames * m_frameWidth, size.height());
    strip.LoadPictureBlt(m_strip, {}, QRect(QPoint(), size));
    for (const StripPlace &place : stripPlaces) {
        if (has(place.state)) {
            strip.LoadPictureBlt(m_strip, frame(place.state).topLeft(),
                                 QRect(QPoint(place.building * m_frameWidth, 0), size));
        }
    }
    if (Sequence.frames > 0) {
        strip.LoadPictureBlt(m_sequence, frame(ButtonState::Over).topLeft(),
                             QRect(0, 0, Sequence.frames * m_frameWidth, size.height()));
    }
    m_strip = std::move(strip);
    m_sequence.ClearUp();
    resize(size);
    if (has(ButtonState::Down)) {
        setCheckable(true); // so that it is heard as latched
    }
    if (!has(ButtonState::Mask)) {
        clearMask();
    }
    updateGeometry();
    Sequence.restart();
    m_shown = chosenState();
    setOver(m_isOver); // the sequence may have begun, or ended, below a resting pointer
    update();
}

void SkinButton::ClearSkin()
{
    if (!m_isFinished) {
        return;
    }
    m_isFinished = false;
    m_present = 0;
    m_frameWidth = 0;
    m_strip.ClearUp();
    m_overlay.reset();
    clearMask();
    Sequence.frames = 0;
    update();
}

void SkinButton::setCaption(const QString &caption)
{
    const QKeySequence before = shortcut();
    m_caption = caption;
    setText(caption); // what assistive programs are told
    const QChar access = accessCharacter(caption);
    setShortcut(access.isNull() ? before
                                : QKeySequence(QKeyCombination(
                                      Qt::AltModifier, static_cast<Qt::Key>(access.toUpper().unicode()))));
    updateGeometry();
    update();
}

void SkinButton::setLatched(bool down)
{
    setCheckable(isCheckable() || down);
    setChecked(down);
}

ButtonState SkinButton::chosenState() const
{
    if (!isEnabled()) {
        return ButtonState::Disabled;
    }
    if (has(ButtonState::Down) && Down()) {
        return ButtonState::Down;
    }
    if (isDown()) {
        return ButtonState::Clicked;
    }
    if (m_isOver) {
        return ButtonState::Over;
    }
    return hasFocus() ? ButtonState::HasFocus : ButtonState::Normal;
}

bool SkinButton::has(ButtonState state) const
{
    return state == ButtonState::Normal || (m_present & bit(state)) != 0;
}

QRect SkinButton::frame(ButtonState state, int overFrame) const
{
    if (!has(state) || m_frameWidth == 0) {
        return {};
    }
    int index = 0;
    if (state != ButtonState::Normal) {
        for (const StripPlace &place : stripPlaces) {
            index += has(place.state) ? 1 : 0;
            if (place.state == state) {
                break;
            }
        }
        index += state == ButtonState::Over ? overFrame : 0;
    }
    return {index * m_frameWidth, 0, m_frameWidth, m_strip.Height()};
}

QRect SkinButton::shownFrame(ButtonState state) const
{
    if (state == ButtonState::Over && !has(state)) {
        state = ButtonState::HasFocus;
    }
    return frame(has(state) ? state : ButtonState::Normal, Sequence.current);
}

/// Shows the state that is to be shown now, when it is another one than is shown.
void SkinButton::redraw()
{
    const ButtonState state = chosenState();
    if (state == m_shown) {
        return;
    }
    m_shown = state;
    if (state == ButtonState::Over) {
        Sequence.restart();
    }
    update();
}

void SkinButton::setOver(bool isOver)
{
    m_isOver = isOver;
    if (isOver && Sequence.frames > 1) {
        tmrHittest.start();
    } else {
        tmrHittest.stop();
    }
    redraw();
}

void SkinButton::animate()
{
    if (m_shown == ButtonState::Over && Sequence.advance(hitTestInterval)) {
        update();
    }
}

QImage SkinButton::picture(ButtonState state, qreal ratio) const
{
    const QSize device(static_cast<int>(std::lround(m_frameWidth * ratio)),
                       static_cast<int>(std::lround(m_strip.Height() * ratio)));
    QImage image(device, QImage::Format_ARGB32_Premultiplied);
    if (!image.isNull()) {
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paintState(painter, state);
    }
    return image;
}

void SkinButton::paintState(QPainter &painter, ButtonState state) const
{
    AlignedPainter(painter).draw({}, m_strip, shownFrame(state));
    if (m_overlay != nullptr) {
        const QPoint place((m_frameWidth - m_overlay->Width()) / 2,
                           (m_strip.Height() - m_overlay->Height()) / 2);
        m_overlay->PaintPicture(painter, place);
    }
    if (!m_caption.isEmpty()) {
        paintCaption(painter, state);
    }
}

void SkinButton::paintCaption(QPainter &painter, ButtonState state) const
{
    const bool isDisabled = state == ButtonState::Disabled;
    const SystemColours system(palette());
    const QFontMetrics metrics(font(), this);
    const int top = (m_strip.Height() - metrics.height()) / 2;
    const QPoint way = state == ButtonState::Clicked ? ClickTextOffset : QPoint();
    const QRect shadow =
        QRect(QPoint(1, top), QPoint(m_frameWidth - 1, m_strip.Height() - 1)).translated(way);
    const QRect text =
        QRect(QPoint(-1, top - 1), QPoint(m_frameWidth - 1, m_strip.Height() - 1)).translated(way);
    constexpr int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextShowMnemonic | Qt::TextSingleLine;
    const QString caption = metrics.elidedText(m_caption, Qt::ElideRight, m_frameWidth, Qt::TextShowMnemonic);

    painter.setFont(font());
    painter.setPen(toColor(system.resolve(isDisabled ? DisabledShadowColour : ForeShadowColour)));
    painter.drawText(shadow, flags, caption);
    painter.setPen(toColor(system.resolve(isDisabled ? DisabledForeColour : ForeColour)));
    painter.drawText(text, flags, caption);
}

void SkinButton::paintPlain()
{
    QStyleOptionButton option;
    option.initFrom(this);
    option.text = m_caption;
    option.state |= isDown() || Down() ? QStyle::State_Sunken : QStyle::State_Raised;
    QPainter painter(this);
    style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
}

QSize SkinButton::sizeHint() const
{
    if (m_isFinished) {
        return {m_frameWidth, m_strip.Height()};
    }
    QStyleOptionButton option;
    option.initFrom(this);
    option.text = m_caption;
    const QSize text = fontMetrics().size(Qt::TextShowMnemonic, m_caption);
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, text, this);
}

void SkinButton::paintEvent(QPaintEvent * /*event*/)
{
    if (!m_isFinished) {
        paintPlain();
        return;
    }
    QPainter painter(this);
    paintState(painter, m_shown);
}

void SkinButton::enterEvent(QEnterEvent *event)
{
    QAbstractButton::enterEvent(event);
    setOver(true);
}

void SkinButton::leaveEvent(QEvent *event)
{
    QAbstractButton::leaveEvent(event);
    setOver(false);
}

/// A button that goes from under the pointer is not told that the pointer left.
void SkinButton::hideEvent(QHideEvent *event)
{
    QAbstractButton::hideEvent(event);
    setOver(false);
}

void SkinButton::focusInEvent(QFocusEvent *event)
{
    QAbstractButton::focusInEvent(event);
    redraw();
}

void SkinButton::focusOutEvent(QFocusEvent *event)
{
    QAbstractButton::focusOutEvent(event);
    redraw();
}

void SkinButton::changeEvent(QEvent *event)
{
    QAbstractButton::changeEvent(event);
    redraw();
    update();
}

/// Enter presses a button as the space bar does.
void SkinButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        animateClick();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}
