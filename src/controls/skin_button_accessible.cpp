#include "controls/skin_button_accessible.h"

#include "controls/SkinButton.h"

#include <QAccessibleWidget>
#include <QRegularExpression>

namespace {

/// The toolkit's own would switch a button that latches over by itself.
class AccessibleSkinButton final : public QAccessibleWidget
{
public:
    explicit AccessibleSkinButton(SkinButton &button)
        : QAccessibleWidget(&button, QAccessible::PushButton), m_button(button)
    {}

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name && m_button.accessibleName().isEmpty()) {
            return withoutMarks(m_button.Caption());
        }
        return kind == QAccessible::Accelerator ? m_button.shortcut().toString(QKeySequence::NativeText)
                                                : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.pressed = m_button.isDown();
        state.checkable = m_button.canLatch();
        state.checked = m_button.Down();
        return state;
    }
    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        return m_button.isEnabled() ? QStringList{pressAction()} + names : names;
    }
    void doAction(const QString &name) override
    {
        if (name == pressAction()) {
            m_button.animateClick(); // later: the caller need not wait for what the click does
        } else {
            QAccessibleWidget::doAction(name);
        }
    }
    QStringList keyBindingsForAction(const QString &name) const override
    {
        return name == pressAction() ? QStringList{text(QAccessible::Accelerator)} : QStringList();
    }

private:
    /// "&&" is a "&".
    static QString withoutMarks(const QString &caption)
    {
        static const QRegularExpression mark(QStringLiteral("&(.?)"));
        return QString(caption).replace(mark, QStringLiteral("\\1"));
    }

    SkinButton &m_button;
};

QAccessibleInterface *accessibleFor([[maybe_unused]] const QString &className, QObject *object)
{
    auto *button = qobject_cast<SkinButton *>(object);
    return button == nullptr ? nullptr : new AccessibleSkinButton(*button);
}

} // namespace

void installSkinButtonAccessibility()
{
    QAccessible::installFactory(accessibleFor); // one that is there already is not added again
}
