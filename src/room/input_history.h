#pragma once

#include <QString>
#include <QStringList>

/// What the user has sent, for being brought back into the box. What stands unsent in the box when the user
/// begins to look back comes again at the end.
class InputHistory
{
public:
    void add(const QString &sent);

    /// The line before and after the one that is shown; the line itself at either end. Takes what is in the
    /// box now.
    [[nodiscard]] QString older(const QString &shown);
    [[nodiscard]] QString newer(const QString &shown);

private:
    static constexpr qsizetype most = 100;

    [[nodiscard]] QString at(qsizetype place, const QString &shown) const;

    QStringList m_lines;
    QString m_unsent;
    qsizetype m_place = 0; ///< m_lines.size() is what is unsent
};
