#include "controls/SkinButton.h"

#include "controls/skin_button_accessible.h"
#include "platform/text_looks.h"
#include "skin/aligned_painter.h"
#include "skin/cDIBSectionRgn2.h"
#include "skin/caption_look.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

#include <cmath>

namespace {

constexpr int hitTestInterval = 25; // milliseconds
constexpr std::size_t mostOverFrames = 16;
constexpr int largestFrame = 1024; // pixels; a strip of larger ones would fill the memory
constexpr qint32 cutAwayByMask = 0xFFFFFF;

/// The states whose frames stand between the Normal and the Over frames of the strip, in their order.
constexpr std::array stripStates = {ButtonState::Clicked, ButtonState::Disabled, ButtonState::HasFocus,
                                    ButtonState::Down};

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
    installSkinButtonAccessibility();
}

SkinButton::~SkinButton() = default;

void SkinButton::SetSkin(ButtonState state, const SkinBitmap &bitmap)
{
    if (bitmap == nullptr || bitmap->isEmpty() || bitmap->Width() > largestFrame ||
        bitmap->Height() > largestFrame) {
        return;
    }
    if (state == ButtonState::Normal) {
        begin(bitmap);
    } else if (state == ButtonState::Overlay) {
        setOverlay(bitmap);
    } else if (m_isFinished || m_frameSize.isEmpty()) {
        return;
    } else if (state == ButtonState::Mask) {
        m_present |= bit(state);
        setMask(regionFromDIB(*bitmap, cutAwayByMask).value_or(QRegion()));
    } else if (state == ButtonState::Over && m_overPictures.size() < mostOverFrames) {
        m_present |= bit(state);
        m_overPictures.push_back(bitmap);
    } else if (std::ranges::find(stripStates, state) != stripStates.end()) {
        m_present |= bit(state);
        m_pictures[static_cast<std::size_t>(state)] = bitmap;
    }
}

void SkinButton::begin(const SkinBitmap &normal)
{
    ClearSkin();
    m_present = 0;
    m_overPictures.clear();
    m_frameSize = normal->size();
    m_pictures[static_cast<std::size_t>(ButtonState::Normal)] = normal;
}

/// Of an overlay whose first pixel is transparent by itself no colour is taken away.
void SkinButton::setOverlay(const SkinBitmap &bitmap)
{
    if (!m_isFinished) {
        return;
    }
    m_overlay = bitmap;
    const bool isTransparent = bitmap->isTransparentAt(0, 0);
    if (OverlayMaskColour != noColour && !isTransparent) {
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
    if (m_isFinished || m_frameSize.isEmpty()) {
        return;
    }
    m_isFinished = true;
    Sequence.frames = static_cast<int>(m_overPictures.size());
    m_strip = makeStrip();
    m_pictures = {};
    m_overPictures.clear();
    resize(m_frameSize);
    if (!has(ButtonState::Mask)) {
        clearMask();
    }
    updateGeometry();
    Sequence.restart();
    m_shown = chosenState();
    setOver(m_isOver); // the sequence may have begun, or ended, below a resting pointer
    update();
}

/// No picture reaches into the next frame.
cDIBSection SkinButton::makeStrip() const
{
    int frames = 1 + Sequence.frames;
    for (const ButtonState state : stripStates) {
        frames += has(state) ? 1 : 0;
    }
    cDIBSection strip;
    strip.Create(frames * m_frameSize.width(), m_frameSize.height());
    const auto place = [&](const SkinBitmap &bitmap, const QRect &frame) {
        strip.LoadPictureBlt(*bitmap, frame.topLeft(), QRect(QPoint(), m_frameSize));
    };
    place(m_pictures[static_cast<std::size_t>(ButtonState::Normal)], frame(ButtonState::Normal));
    for (const ButtonState state : stripStates) {
        if (has(state)) {
            place(m_pictures[static_cast<std::size_t>(state)], frame(state));
        }
    }
    for (int number = 1; number <= Sequence.frames; ++number) {
        place(m_overPictures[static_cast<std::size_t>(number - 1)], frame(ButtonState::Over, number));
    }
    return strip;
}

void SkinButton::ClearSkin()
{
    if (!m_isFinished) {
        return;
    }
    m_isFinished = false;
    m_present = 0;
    m_frameSize = {};
    m_strip.ClearUp();
    m_overlay.reset();
    clearMask();
    Sequence.frames = 0;
    updateGeometry();
    update();
}

void SkinButton::setCaption(const QString &caption)
{
    m_ownCaption = caption;
    showCaption(caption);
}

void SkinButton::setSkinCaption(const QString &caption)
{
    const QString &shown = caption.isEmpty() ? m_ownCaption : caption;
    if (shown != m_caption) {
        setShortcut({}); // the key of another skin's caption
        showCaption(shown);
    }
}

void SkinButton::showCaption(const QString &caption)
{
    const QKeySequence before = shortcut();
    m_caption = caption.left(longestCaption);
    setText(m_caption); // takes the access key away, and tells assistive programs
    const QChar access = accessCharacter(m_caption);
    setShortcut(access.isNull() ? before
                                : QKeySequence(QKeyCombination(
                                      Qt::AltModifier, static_cast<Qt::Key>(access.toUpper().unicode()))));
    updateGeometry();
    update();
}

void SkinButton::setLatched(bool down)
{
    if (down == m_isLatched) {
        return;
    }
    m_isLatched = down;
    redraw();
    update(); // without a skin it is no other state
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
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
    if (!has(state) || m_frameSize.isEmpty()) {
        return {};
    }
    int index = 0;
    if (state != ButtonState::Normal) {
        for (const ButtonState before : stripStates) {
            index += has(before) ? 1 : 0;
            if (before == state) {
                break;
            }
        }
        index += state == ButtonState::Over ? overFrame : 0;
    }
    return {QPoint(index * m_frameSize.width(), 0), m_frameSize};
}

QRect SkinButton::shownFrame(ButtonState state) const
{
    if (state == ButtonState::Over && !has(state)) {
        state = ButtonState::HasFocus;
    }
    return frame(has(state) ? state : ButtonState::Normal, Sequence.current);
}

/// The state to be shown now becomes the one that is shown. True when it is another one.
bool SkinButton::takeState()
{
    const ButtonState state = chosenState();
    if (state == m_shown) {
        return false;
    }
    m_shown = state;
    if (state == ButtonState::Over) {
        Sequence.restart();
    }
    return true;
}

void SkinButton::redraw()
{
    if (takeState()) {
        update();
    }
}

void SkinButton::setOver(bool isOver)
{
    m_isOver = isOver;
    if (!isOver || Sequence.frames < 2) {
        tmrHittest.stop();
    } else if (!tmrHittest.isActive()) {
        tmrHittest.start();
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
    const QSize device(static_cast<int>(std::lround(m_frameSize.width() * ratio)),
                       static_cast<int>(std::lround(m_frameSize.height() * ratio)));
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
        const QPoint place((m_frameSize.width() - m_overlay->Width()) / 2,
                           (m_frameSize.height() - m_overlay->Height()) / 2);
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
    const QFont font = captionFont(this->font());
    const QFontMetrics metrics(font, this);
    const int top = (m_frameSize.height() - metrics.height()) / 2;
    const QPoint end(m_frameSize.width() - 1, m_frameSize.height() - 1);
    const QPoint way = state == ButtonState::Clicked ? ClickTextOffset : QPoint();
    const QRect shadow = QRect(QPoint(1, top), end).translated(way);
    const QRect text = QRect(QPoint(-1, top - 1), end).translated(way);
    constexpr int flags = Qt::AlignHCenter | Qt::AlignTop | Qt::TextShowMnemonic | Qt::TextSingleLine;
    const QString caption =
        metrics.elidedText(m_caption, Qt::ElideRight, m_frameSize.width(), Qt::TextShowMnemonic);

    painter.setFont(font);
    painter.setPen(
        toColor(system.resolve(isDisabled ? Colours.DisabledShadowColour : Colours.ForeShadowColour)));
    painter.drawText(shadow, flags, caption);
    painter.setPen(toColor(system.resolve(isDisabled ? Colours.DisabledForeColour : Colours.ForeColour)));
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
        return m_frameSize;
    }
    QStyleOptionButton option;
    option.initFrom(this);
    option.text = m_caption;
    const QSize text = fontMetrics().size(Qt::TextShowMnemonic, m_caption);
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, text, this);
}

void SkinButton::paintEvent(QPaintEvent * /*event*/)
{
    if (m_isFinished) {
        takeState();
        QPainter painter(this);
        paintState(painter, m_shown);
    } else {
        paintPlain();
    }
    if (hasFocus() && Down()) {
        paintFocusLine();
    }
}

/// One that latches has no picture for being down with the keyboard on it.
void SkinButton::paintFocusLine()
{
    if (m_isFinished && m_shown != ButtonState::Down) {
        return; // the picture shows the keyboard
    }
    constexpr qreal inset = 4.5;
    constexpr qreal roundness = 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(m_isFinished ? QPalette::Link : QPalette::Highlight));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), roundness, roundness);
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
}

/// Enter presses a button as the space bar does.
void SkinButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            animateClick();
        }
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

/// A pressed button whose pointer is dragged off is not below it any more.
void SkinButton::mouseMoveEvent(QMouseEvent *event)
{
    QAbstractButton::mouseMoveEvent(event);
    setOver(hitButton(event->position().toPoint()));
}
