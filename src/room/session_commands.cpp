#include "room/session_commands.h"

#include "platform/prompts.h"
#include "platform/rich_edit.h"
#include "platform/rtf_saver.h"

#include <QFileInfo>
#include <QLocale>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

constexpr int margin = 1440; // twips: one inch
constexpr qsizetype wholeBoard = 10'000'000;

} // namespace

QString sessionDate(const QDate &date)
{
    return QLocale::c().toString(date, u"dd-MMM-yyyy");
}

SessionCommands::SessionCommands(const RichEdit &board, Prompts &prompts, QWidget *window)
    : m_board(board), m_prompts(prompts), m_window(window)
{}

void SessionCommands::save()
{
    const QString proposed = u"Chat Session " % sessionDate(QDate::currentDate()) % u".rtf";
    const QString path =
        m_prompts.ShowSave(tr("Save Session to File"), proposed, tr("Richtext File (*.rtf)"));
    if (path.isEmpty()) {
        return;
    }
    auto *saver = new RtfSaver(m_board.document().copy(0, m_board.document().length()), path, m_window);
    saver->setParent(this);
    connect(saver, &RtfSaver::finished, this, [this, saver](bool whole) {
        saver->deleteLater();
        Q_EMIT saved(whole);
    });
    saver->start();
}

void SessionCommands::print()
{
    const QString question =
        tr("This will print the chat session to your Default printer.\n\nDo you wish to continue?");
    if (m_prompts.ask(question, tr("Print Session"), PromptIcon::Information, PromptButtons::YesNo) !=
        PromptAnswer::Yes) {
        return;
    }
    const QPrinterInfo device = QPrinterInfo::defaultPrinter();
    if (device.isNull()) {
        return;
    }
    QPrinter printer(device, QPrinter::HighResolution);
    printer.setDocName(QString(u"Pylox Chat Session - " % sessionDate(QDate::currentDate())));
    m_board.print(printer, 0, wholeBoard, margin);
}
