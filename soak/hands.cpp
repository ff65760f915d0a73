#include "soak/hands.h"

#include "soak/report.h"
#include "soak/turn_watch.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>

namespace {

constexpr int pressAgain = 100; // milliseconds

} // namespace

QList<QWidget *> hands::windows(QStringView name)
{
    QList<QWidget *> found;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible()) {
            found += window;
        }
    }
    std::ranges::sort(found, {}, &QWidget::windowTitle); // their order on the screen depends on chance
    return found;
}

QWidget *hands::window(QStringView name)
{
    return windows(name).value(0);
}

void hands::press(const QWidget &window, const QString &button)
{
    if (auto *found = control<QAbstractButton>(window, button)) {
        found->click(); // which does nothing where it is disabled
    }
}

void hands::key(QWidget &box, int key, const QString &text, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(&box, &down);
}

QString hands::textOf(const QWidget &box)
{
    const QVariant line = box.property("text");
    return (line.isValid() ? line : box.property("plainText")).toString();
}

void hands::takeEntry(const QString &text, int number)
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (menu == nullptr) {
        return;
    }
    QList<QAction *> entries = menu->actions();
    entries.removeIf([&](const QAction *entry) {
        const QString name = entry->text();
        return !entry->isEnabled() || name.isEmpty() ||
               (text.isEmpty() ? name == u"Ignore User" : name != text);
    });
    if (!entries.isEmpty()) {
        entries[number % entries.size()]->trigger();
    }
    menu->close();
}

PressingPrompts::PressingPrompts(quint32 seed, const QString &folder, Report &report)
    : m_random(seed), m_folder(folder), m_report(report)
{}

PromptAnswer PressingPrompts::ask(const QString &text, const QString &caption, PromptIcon icon,
                                  PromptButtons buttons)
{
    const bool isPressed = m_random.bounded(2) == 0;
    const bool yes = m_random.bounded(4) != 0;
    m_report.step(QStringLiteral("box"), caption);
    PromptAnswer answer = yes ? PromptAnswer::Yes : PromptAnswer::No;
    if (isPressed) {
        QTimer presser;
        QObject::connect(&presser, &QTimer::timeout, &presser, [yes] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                const QList<QAbstractButton *> all = box->buttons();
                (yes ? all.first() : all.last())->click();
            }
        });
        presser.start(pressAgain);
        answer = m_boxes.ask(text, caption, icon, buttons);
    } else if (buttons == PromptButtons::Ok) {
        answer = PromptAnswer::Ok;
    }
    m_staying = m_staying || (caption == u"Leave Chat" && answer == PromptAnswer::No);
    return answer;
}

QString PressingPrompts::ShowSave(const QString & /*title*/, const QString &proposedName,
                                  const QString & /*filter*/)
{
    return m_random.bounded(4) == 0 ? QString() : QString(m_folder % u'/' % proposedName);
}

std::optional<QFont> PressingPrompts::ShowFont(const QFont &current, int smallest, int largest)
{
    QFont font = current;
    font.setPointSize(m_random.bounded(smallest, largest + 1));
    return font;
}

std::optional<ColourValue> PressingPrompts::ShowColor(ColourValue /*current*/)
{
    return m_random.bounded(0x1000000);
}

void SoakClock::block(qint64 milliseconds)
{
    const TurnWatch::Uncounted uncounted(m_watch);
    m_clock.block(milliseconds / 10);
}
