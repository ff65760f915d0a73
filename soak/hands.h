#pragma once

#include "core/clock.h"
#include "platform/message_boxes.h"

#include <QRandomGenerator>
#include <QWidget>

class Report;
class TurnWatch;

/// The hands of the soak's user: they find windows and controls by their names, and press them.
namespace hands {

/// One that is to be seen; null when there is none.
[[nodiscard]] QWidget *window(QStringView name);
[[nodiscard]] QList<QWidget *> windows(QStringView name);

template <typename Control>
[[nodiscard]] Control *control(const QWidget &window, const QString &name)
{
    return window.findChild<Control *>(name);
}

/// Nothing happens when the button is not there or cannot be pressed.
void press(const QWidget &window, const QString &button);
void key(QWidget &box, int key, const QString &text = {}, Qt::KeyboardModifiers modifiers = {});
/// What stands in a box of one line or of several.
[[nodiscard]] QString textOf(const QWidget &box);
/// Takes an entry of the menu that stands open and closes the menu: the one with this text, or the one with
/// this number of those that leave everybody heard.
void takeEntry(const QString &text, int number = 0);

} // namespace hands

/// Answers boxes: half of them at once, the others stand on the screen until they are pressed.
class PressingPrompts final : public Prompts
{
public:
    PressingPrompts(quint32 seed, const QString &folder, Report &report);

    PromptAnswer ask(const QString &text, const QString &caption, PromptIcon icon,
                     PromptButtons buttons) override;
    QString ShowSave(const QString &title, const QString &proposedName, const QString &filter) override;
    std::optional<QFont> ShowFont(const QFont &current, int smallest, int largest) override;
    std::optional<ColourValue> ShowColor(ColourValue current) override;

    /// The user was asked whether to end the program, and said no. Asking forgets it.
    [[nodiscard]] bool takeStaying() { return std::exchange(m_staying, false); }

private:
    QRandomGenerator m_random;
    QString m_folder;
    Report &m_report;
    MessageBoxes m_boxes;
    bool m_staying = false;
};

/// The time of the machine. A block is by rule, so that it does not count as a turn, and nobody learns
/// anything from its length: it takes a tenth of its time.
class SoakClock final : public Clock
{
public:
    explicit SoakClock(TurnWatch &watch) : m_watch(watch) {}

    [[nodiscard]] QDateTime now() const override { return m_clock.now(); }
    [[nodiscard]] qint64 steadyMilliseconds() const override { return m_clock.steadyMilliseconds(); }
    void block(qint64 milliseconds) override;

private:
    TurnWatch &m_watch;
    SystemClock m_clock;
};
