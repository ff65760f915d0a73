#pragma once

#include <QString>
#include <QStringList>

/// Completes the beginning of a name at the end of what is typed; asked again, it goes on to the next name
/// that fits.
class NameCompletion
{
public:
    /// The text up to the caret with the name in the place of its beginning, or an empty text when no name
    /// fits. The names are those of now, in the order in which they are offered.
    [[nodiscard]] QString complete(const QString &beforeCaret, const QStringList &names);

private:
    QString m_completed; ///< what the last call gave
    QString m_before;    ///< what stands before the name in it
    QString m_beginning; ///< what had been typed of the name
    qsizetype m_next = 0;
};
