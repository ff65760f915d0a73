#pragma once

#include <QDate>
#include <QObject>
#include <QString>

class Prompts;
class QWidget;
class RichEdit;

/// "05-Mar-2026", in every locale.
[[nodiscard]] QString sessionDate(const QDate &date);

/// Keeps what is on the board: as a file, or on paper. Cancelling and failures end quietly; a file is written
/// whole or not at all.
class SessionCommands final : public QObject
{
    Q_OBJECT

public:
    /// The dialogs stand over the window.
    SessionCommands(const RichEdit &board, Prompts &prompts, QWidget *window);

    /// Asks for the file and writes the board as it is now into it, while events go on.
    void save();
    /// Asks, and prints on the default printer.
    void print();

Q_SIGNALS:
    /// Once for each file that was asked to be written.
    void saved(bool whole);

private:
    const RichEdit &m_board;
    Prompts &m_prompts;
    QWidget *m_window;
};
