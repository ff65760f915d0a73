// The message board with a long evening on it: what a line costs, what it takes in memory, and how long one
// waits for a frame. The toolkit's own text widgets get the same lines.

#include "bench/figures.h"
#include "core/options.h"
#include "emotions/built_in_pictures.h"
#include "emotions/emoticon_file.h"
#include "platform/image_list.h"
#include "platform/rich_edit.h"
#include "platform/rtf_saver.h"
#include "richtext/rtf_reader.h"
#include "room/message_board.h"
#include "room/message_look.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <malloc.h>

namespace {

constexpr int lineCount = 100'000;
constexpr int runs = 3;
constexpr int linesPerTurn = 100;

QString name(int at)
{
    return QStringLiteral("Member%1").arg(at % 37);
}

/// One line in ten has an emoticon, one in twenty an address.
QString line(int at)
{
    const QString words = QStringLiteral("this is line number %1 of a long evening and so on").arg(at);
    return at % 10 == 3   ? QString(words + u" :)")
           : at % 20 == 7 ? QString(words + u" http://example.org/page")
                          : words;
}

double heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

/// Counts the frames of a widget.
class Frames final : public QObject
{
public:
    explicit Frames(QWidget *widget) { widget->installEventFilter(this); }
    [[nodiscard]] int count() const { return m_count; }

    bool eventFilter([[maybe_unused]] QObject *watched, QEvent *event) override
    {
        m_count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int m_count = 0;
};

/// A board with all that belongs to it, shown.
struct Board
{
    Board() : emoticons(QString(folder.path() + u'/')), messages(box, options, skin, emoticons, pictures)
    {
        addBuiltInEmoticons(pictures);
        box.setReadOnly(true);
        box.resize(800, 600);
        box.show();
        QCoreApplication::processEvents();
    }

    void addMessages(int from, int to)
    {
        for (int at = from; at < to; ++at) {
            messages.AddMessage(line(at), MessageKind::Member, name(at));
        }
    }

    /// In a burst, with the event loop turning; seconds of CPU.
    double burst(int from, int to)
    {
        QEventLoop loop;
        QTimer timer;
        int at = from;
        QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
            const int last = std::min(at + linesPerTurn, to);
            addMessages(at, last);
            at = last;
            if (at == to) {
                loop.quit();
            }
        });
        const double before = cpuSeconds();
        timer.start(0);
        loop.exec();
        return cpuSeconds() - before;
    }

    /// Milliseconds from doing something until the new frame is there.
    double untilFrame(const std::function<void()> &work)
    {
        QElapsedTimer elapsed;
        elapsed.start();
        const int before = frames.count();
        work();
        while (frames.count() == before) {
            QCoreApplication::processEvents();
        }
        return static_cast<double>(elapsed.nsecsElapsed()) / 1e6;
    }

    QTemporaryDir folder;
    Options options;
    ChatColours skin;
    EmoticonFile emoticons;
    ImageList pictures;
    RichEdit box;
    MessageBoard messages;
    Frames frames{box.viewport()};
};

/// The longest time that one turn of the event loop takes, in milliseconds, over a while.
double longestTurn(int milliseconds)
{
    QElapsedTimer all;
    all.start();
    double longest = 0;
    while (!all.hasExpired(milliseconds)) {
        QElapsedTimer turn;
        turn.start();
        QCoreApplication::processEvents();
        longest = std::max(longest, static_cast<double>(turn.nsecsElapsed()) / 1e6);
    }
    return longest;
}

/// The lines of a conversation as what a message becomes before it is appended.
std::vector<RichDocument> prepared(int count)
{
    std::vector<RichDocument> lines;
    const Options options;
    const QFont font = QApplication::font();
    const MessageLook look = messageLook(options, {}, {font, {}});
    const SystemColours colours(QApplication::palette());
    for (int at = 0; at < count; ++at) {
        RichDocument document;
        (void)readRtf(MessageRtf(look, colours).GenerateRTF(line(at), MessageKind::Member, name(at), false),
                      document);
        lines.push_back(std::move(document));
    }
    return lines;
}

double appendOurs(const std::vector<RichDocument> &lines)
{
    RichEdit box;
    box.resize(800, 600);
    box.show();
    const double before = cpuSeconds();
    for (std::size_t at = 0; at < lines.size(); ++at) {
        box.append(lines[at]);
        box.toEnd();
        if (at % linesPerTurn == 0) {
            QCoreApplication::processEvents();
        }
    }
    return cpuSeconds() - before;
}

/// The same texts and formats, as many as come in one turn in one edit block.
double appendTheirs(int count)
{
    QTextEdit box;
    box.setReadOnly(true);
    box.setUndoRedoEnabled(false);
    box.resize(800, 600);
    box.show();
    QTextCharFormat nameFormat;
    nameFormat.setFontWeight(QFont::Bold);
    nameFormat.setForeground(Qt::darkGreen);
    nameFormat.setBackground(Qt::white);
    QTextCharFormat wordFormat;
    wordFormat.setForeground(Qt::black);
    wordFormat.setBackground(Qt::white);
    const double before = cpuSeconds();
    for (int at = 0; at < count;) {
        QTextCursor cursor(box.document());
        cursor.movePosition(QTextCursor::End);
        cursor.beginEditBlock();
        for (const int last = std::min(at + linesPerTurn, count); at < last; ++at) {
            cursor.insertBlock();
            cursor.insertText(QString(name(at) + u": "), nameFormat);
            cursor.insertText(line(at), wordFormat);
        }
        cursor.endEditBlock();
        box.verticalScrollBar()->setValue(box.verticalScrollBar()->maximum());
        QCoreApplication::processEvents();
    }
    return cpuSeconds() - before;
}

double appendPlain(int count)
{
    QPlainTextEdit box;
    box.setReadOnly(true);
    box.setUndoRedoEnabled(false);
    box.resize(800, 600);
    box.show();
    const double before = cpuSeconds();
    for (int at = 0; at < count;) {
        QStringList lines;
        for (const int last = std::min(at + linesPerTurn, count); at < last; ++at) {
            lines += QString(name(at) + u": " + line(at));
        }
        box.appendPlainText(lines.join(u'\n'));
        QCoreApplication::processEvents();
    }
    return cpuSeconds() - before;
}

void benchLines()
{
    std::vector<double> perLine;
    std::vector<double> growth;
    std::vector<double> memory;
    for (int run = 0; run < runs; ++run) {
        Board board;
        (void)board.burst(0, 1'000);
        const double heap = heapBytes();
        const double early = board.burst(1'000, 11'000);
        const double most = board.burst(11'000, 90'000);
        const double late = board.burst(90'000, lineCount);
        perLine.push_back((early + most + late) / (lineCount - 1'000) * 1e6);
        growth.push_back(late / early);
        memory.push_back((heapBytes() - heap) / (lineCount - 1'000));
    }
    printFigure("board line in a burst", median(perLine), "us", 15);
    printFigure("board line at 100k to line at 1k", median(growth), "times", 1.2);
    printFigure("board memory per line", median(memory), "bytes", 300);
}

void benchAgainstOthers()
{
    constexpr int count = 20'000;
    const std::vector<RichDocument> lines = prepared(count);
    std::vector<double> ours;
    std::vector<double> rich;
    std::vector<double> plain;
    for (int run = 0; run < runs; ++run) {
        ours.push_back(appendOurs(lines) / count * 1e6);
        rich.push_back(appendTheirs(count) / count * 1e6);
        plain.push_back(appendPlain(count) / count * 1e6);
    }
    printFigure("board appending alone", median(ours), "us");
    printFigure("QTextEdit appending in batches", median(rich), "us");
    printFigure("QPlainTextEdit appending in batches", median(plain), "us");
    printFigure("board to QTextEdit appending", median(ours) / median(rich), "times", 0.2);
}

void benchFrames(Board &board)
{
    QScrollBar *bar = board.box.verticalScrollBar();
    std::vector<double> widths;
    std::vector<double> pages;
    std::vector<double> jumps;
    double longest = 0;
    for (int step = 0; step <= 40; ++step) {
        bar->setValue(static_cast<int>(qint64(bar->maximum()) * step / 40));
        QCoreApplication::processEvents();
        const int width = 500 + 37 * (step % 13);
        widths.push_back(board.untilFrame([&] { board.box.resize(width, 600); }));
        longest = std::max(longest, longestTurn(30));
        const auto action = step < 20 ? QScrollBar::SliderPageStepAdd : QScrollBar::SliderPageStepSub;
        pages.push_back(board.untilFrame([&] { bar->triggerAction(action); }));
        jumps.push_back(board.untilFrame([&] { bar->setValue((step * 7919) % 41 * (bar->maximum() / 41)); }));
    }
    printFigure("board width change at 100k, worst", std::ranges::max(widths), "ms", 16);
    printFigure("board longest block after it", longest, "ms", 16);
    printFigure("board page scroll, worst", std::ranges::max(pages), "ms", 8);
    printFigure("board page scroll, median", median(pages), "ms", 8);
    printFigure("board jump, worst", std::ranges::max(jumps), "ms");
}

void benchTheirWidthChange()
{
    QTextEdit box;
    box.setUndoRedoEnabled(false);
    box.resize(800, 600);
    box.show();
    QStringList lines;
    for (int at = 0; at < lineCount; ++at) {
        lines += QString(name(at) + u": " + line(at));
    }
    box.setPlainText(lines.join(u'\n'));
    QCoreApplication::processEvents();
    const Frames frames(box.viewport());
    const double seconds = secondsFor([&] {
        box.resize(box.width() - 50, 600);
        box.viewport()->repaint();
    });
    printFigure("QTextEdit width change at 100k, first frame", seconds * 1000, "ms");
    printFigure("QTextEdit longest block after it", longestTurn(500), "ms");
}

void benchReader()
{
    const Options options;
    const QFont font = QApplication::font();
    const MessageLook look = messageLook(options, {}, {font, {}});
    const SystemColours colours(QApplication::palette());
    QStringList texts;
    qsizetype characters = 0;
    for (int at = 0; at < 10'000; ++at) {
        texts += MessageRtf(look, colours).GenerateRTF(line(at), MessageKind::Member, name(at), false);
        characters += texts.back().size();
    }
    const double seconds = secondsFor([&] {
        for (const QString &text : texts) {
            RichDocument document;
            (void)readRtf(text, document);
        }
    });
    printRate("RTF reader, a message at a time", static_cast<double>(characters) / seconds / 1e6, "MB/s",
              100);
}

/// Until a file of the whole board is there, with the event loop turning.
void benchSaving(Board &board)
{
    std::vector<double> took;
    double longest = 0;
    const QString path = board.folder.filePath(QStringLiteral("session.rtf"));
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer elapsed;
        elapsed.start();
        bool done = false;
        RtfSaver saver(board.box.document().copy(0, board.box.document().length()), path, &board.box);
        QObject::connect(&saver, &RtfSaver::finished, [&](bool saved) { done = saved; });
        saver.start();
        double sinceTurn = static_cast<double>(elapsed.nsecsElapsed()) / 1e6;
        while (!done) {
            longest = std::max(longest, sinceTurn);
            QElapsedTimer turn;
            turn.start();
            QCoreApplication::processEvents();
            sinceTurn = static_cast<double>(turn.nsecsElapsed()) / 1e6;
        }
        took.push_back(static_cast<double>(elapsed.elapsed()) / 1000);
    }
    printFigure("saving 100k lines as RTF", median(took), "s", 1);
    printFigure("longest block while saving", longest, "ms", 100);

    QFile file(path);
    (void)file.open(QIODevice::ReadOnly);
    const QByteArray rtf = file.readAll();
    const double seconds = secondsFor([&] {
        RichDocument document;
        (void)readRtf(rtf, document);
    });
    printRate("RTF reader on the saved board", static_cast<double>(rtf.size()) / seconds / 1e6, "MB/s", 100);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchLines();
    benchAgainstOthers();
    benchReader();
    {
        Board board;
        board.addMessages(0, lineCount);
        QCoreApplication::processEvents();
        benchFrames(board);
        benchSaving(board);
    }
    benchTheirWidthChange();
}
