#include "platform/rich_edit.h"
#include "richtext/documents.h"
#include "richtext/dump.h"
#include "richtext/rtf_reader.h"
#include "support/eventually.h"
#include "support/text.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPrinter>
#include <QTemporaryFile>
#include <QTextDocumentFragment>
#include <QToolTip>

struct RichEditTest : QObject, testing::Test
{
    void show(const QStringList &paragraphs)
    {
        box.show();
        box.clear();
        box.append(documentOf(paragraphs));
    }

    /// Keys by their names; 'x is typed. With the mouse: p6 pressed at position 6, r6 released, d6 pressed
    /// again, m6 moved; m alone leaves the box below. Gives what is then in the box, with the selection in
    /// brackets or a bar for the caret, and the signals that were sent.
    QString act(const QString &script, QWidget *receiver = nullptr)
    {
        signalled.clear();
        for (const QString &step : script.split(u' ')) {
            const QString typed = step[0] == u'\'' ? step.mid(1) : QString();
            const QKeyCombination key = typed.isEmpty() ? QKeySequence(step)[0] : QKeyCombination();
            QKeyEvent press(QEvent::KeyPress, key.key(), key.keyboardModifiers(), typed);
            const qsizetype gesture = u"prdm"_s.indexOf(step[0]); // in the order of the events' numbers
            const QPoint at = step == u"m" ? QPoint(50, 250) : caretRect(step.mid(1).toInt()).center();
            QMouseEvent mouse(static_cast<QEvent::Type>(QEvent::MouseButtonPress + gesture), at,
                              box.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
            gesture < 0 ? QCoreApplication::sendEvent(receiver == nullptr ? &box : receiver, &press)
                        : QCoreApplication::sendEvent(box.viewport(), &mouse);
        }
        const auto text = [this](qsizetype from, qsizetype to) { return box.document().plainText(from, to); };
        return text(0, box.selectionStart()) +
               (box.hasSelection() ? QString(u'[' + box.selectedText() + u']') : u"|"_s) +
               text(box.selectionEnd(), box.document().length()) + signalled;
    }
    QRect caretRect(qsizetype position) { return box.caretRectAt(box.document().placeOf(position)); }

    bool eventFilter([[maybe_unused]] QObject *filtered, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    RichEdit box;
    QString signalled;
    int paints = 0; ///< of what this is the event filter of
};

TEST_F(RichEditTest, ALinkTellsWhereItLeads)
{
    show({u"www.a.b/?c&d"_s});
    const QPoint onLink = caretRect(3).center();
    QHelpEvent hover(QEvent::ToolTip, onLink, box.viewport()->mapToGlobal(onLink));
    QCoreApplication::sendEvent(box.viewport(), &hover);
    EXPECT_EQ(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(), u"http://www.a.b/?c&d"_s);
    EXPECT_TRUE(Qt::mightBeRichText(QToolTip::text())) << "else the escapes are seen";
}

TEST_F(RichEditTest, SelectingWithTheMouseAndCopying)
{
    connect(&box, &RichEdit::linkActivated, this, [this] { signalled += u" link"; });
    show({u"one* two three"_s, u"b|* www.a.b"_s});
    EXPECT_EQ(caretRect(4).left() - caretRect(3).left(), 20) << "as wide as the picture";
    EXPECT_EQ(act(u"p6 r6 d6"_s), u"one:) [two] three\n:) www.a.b"_s);
    EXPECT_EQ(act(u"m1 r1"_s), u"[one:) two] three\n:) www.a.b"_s);
    EXPECT_EQ(act(u"d7 r7 p7 r7"_s), u"[one:) two three]\n:) www.a.b"_s);
    EXPECT_EQ(act(u"p8 r8 d8 r8"_s), u"one:) [two] three\n:) www.a.b"_s) << "behind the word";
    EXPECT_EQ(act(u"p20 m18 r18"_s), u"one:) two three\n:) w[ww].a.b"_s) << "no click on the link";
    EXPECT_EQ(act(u"p20 r20"_s), u"one:) two three\n:) www|.a.b link"_s);
    EXPECT_EQ(act(u"p16 m1 r1 Ctrl+C"_s), u"o[ne:) two three\n:)] www.a.b"_s);
    RichDocument read;
    const QMimeData *copied = QApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->text(), u"ne:) two three\n:)"_s);
    EXPECT_TRUE(readRtf(QByteArrayView(copied->data(u"text/rtf"_s)), read).isOk());
    EXPECT_EQ(dump(read), dump(box.document().copy(1, 16)));

    show(QStringList(200, u"line"_s));
    (void)act(u"p2 m"_s);
    EXPECT_TRUE(eventually([&] { return box.caretPlace().paragraph > 30; })) << "it scrolls";
    (void)act(u"r2"_s);
    EXPECT_FALSE(eventually([&, end = box.caret()] { return box.caret() != end; }, 100));
}

TEST_F(RichEditTest, KeysWriteAndTakeBack)
{
    connect(&box, &RichEdit::returnPressed, this, [this] { signalled += u" return"; });
    show({});
    QApplication::clipboard()->setText(u"x\r\ny\u0001\u0085\uFFFC\u0000\rz\tw"_s);
    EXPECT_EQ(act(u"'a 'b '\U0001F600 Backspace"_s), u"ab|"_s);
    EXPECT_EQ(act(u"Ctrl+Z"_s), u"ab\U0001F600|"_s);
    EXPECT_EQ(act(u"Ctrl+Z Ctrl+Z"_s), u"|"_s);
    EXPECT_EQ(act(u"Ctrl+Shift+Z"_s), u"ab|"_s);
    EXPECT_EQ(act(u"Shift+Return Ctrl+V Return"_s), u"ab\nx\ny\nz\tw| return"_s);
    EXPECT_EQ(act(u"Shift+Left Ctrl+X Home"_s), u"ab\nx\ny\n|z\t"_s);
    EXPECT_EQ(act(u"Ctrl+Shift+Home Delete"_s), u"|z\t"_s);
    box.setReadOnly(true);
    EXPECT_EQ(act(u"'a Delete Ctrl+Z Ctrl+V Ctrl+A Ctrl+X Shift+Return Return"_s), u"[z\t]"_s);
}

TEST_F(RichEditTest, ComposedTextIsShownAndBelongsToTheTextOnceDone)
{
    show({u"abcd"_s});
    const auto compose = [&](const QString &preedit, const QString &commit, int replaced) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit, -replaced, replaced);
        QCoreApplication::sendEvent(&box, &event);
        return box.toPlainText();
    };
    const int end = caretRect(4).left();
    box.select(1, 2);
    EXPECT_EQ(compose(u"wide"_s, {}, 0), u"acd"_s) << "it takes the selection's place";
    EXPECT_GT(box.caretRectAt({0, 3 + 4}).left(), end);
    EXPECT_EQ(compose({}, u"\u4E2D"_s, 0), u"a\u4E2Dcd"_s);
    EXPECT_EQ(compose(u"iiii"_s, u"b"_s, 1), u"abcd"_s);
    EXPECT_TRUE(compose({}, {}, 0) == u"abcd" && caretRect(4).left() == end) << "what was given up is gone";
}

TEST_F(RichEditTest, TheCaretGoesAsTheEyeReads)
{
    show({u"abc"_s, u"\u05D0\u05D1\u05D2"_s, u"d e"_s});
    const std::tuple<qsizetype, QString, qsizetype> moves[] = {
        {3, u"Right"_s, 4}, {4, u"Left"_s, 5},        {5, u"Right"_s, 4},     {4, u"Right"_s, 3},
        {7, u"Left"_s, 8},  {8, u"Ctrl+Right"_s, 10}, {4, u"Ctrl+Left"_s, 7}, {9, u"Home"_s, 8},
        {9, u"End"_s, 11},  {9, u"Ctrl+Home"_s, 0},   {1, u"Ctrl+End"_s, 11}, {9, u"Down"_s, 11},
    };
    for (const auto &[from, key, to] : moves) {
        box.select(from, from);
        (void)act(key);
        EXPECT_EQ(box.caret(), to) << from << ' ' << key.toStdString();
    }
    show(QStringList(300, u"line"_s));
    (void)act(u"Ctrl+Home Down p3 r3 Shift+PgDown Shift+PgDown"_s); // a click has another column
    EXPECT_TRUE(box.caretPlace().offset == 3 && box.caretPlace().paragraph > 10 && box.selectionStart() == 3);
    EXPECT_TRUE(box.viewport()->rect().contains(caretRect(box.caret())));
    (void)act(u"PgUp PgUp"_s);
    EXPECT_EQ(box.caret(), 3);
}

TEST_F(RichEditTest, FindingGoesUpwardsAndRound)
{
    show({u"One two"_s, u"one"_s, u"three"_s});
    box.select(7, 7);
    (void)act(u"Ctrl+F"_s);
    auto *words = box.findChild<QLineEdit *>();
    const QString first = u"[One] two\none\nthree"_s;
    EXPECT_EQ(act(u"'o"_s, words), u"One tw[o]\none\nthree"_s);
    EXPECT_EQ(act(u"'n 'e"_s, words), first);
    EXPECT_EQ(act(u"Return Return Return Shift+Return"_s, words), first);
    EXPECT_FALSE(box.findChild<QLabel *>()->isVisible());
    EXPECT_TRUE(act(u"End 's"_s, words) == first && box.findChild<QLabel *>()->isVisible()) << "not found";
}

TEST_F(RichEditTest, ManyMessagesBetweenTwoFramesArePaintedOnce)
{
    show({});
    (void)eventually([] { return false; }, 100);
    box.viewport()->installEventFilter(this);
    for (int message = 0; message < 1000; ++message) {
        box.append(documentOf({u"hello"_s}));
    }
    (void)eventually([] { return false; }, 100);
    EXPECT_EQ(paints, 1);
}

TEST_F(RichEditTest, ALongTextIsPrintedOnManyPages)
{
    for (const QStringList &text : {QStringList(199, u"line"_s), {u"line\u2028"_s.repeated(199)}}) {
        show(text);
        QTemporaryFile file;
        QPrinter printer;
        ASSERT_TRUE(file.open());
        printer.setOutputFileName(file.fileName());
        EXPECT_TRUE(box.print(printer, 0, box.document().length(), 1440));
        const qsizetype pages = file.readAll().count("/Type /Page\n");
        EXPECT_TRUE(3 <= pages && pages <= 8) << pages;
    }
}
