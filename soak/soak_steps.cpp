#include "app/program.h"
#include "platform/rich_edit.h"
#include "room/frmMain.h"
#include "soak/report.h"
#include "soak/soak.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTreeWidget>

namespace {

constexpr qsizetype stepsWithoutLink = 15; // then there is nothing to be seen any more
constexpr int firstOwnRoom = 6;            // those before are the companion's
constexpr int mostWaits = 2;               // of the user inside each other; the inner one ends first
constexpr int pace = 1100;                 // milliseconds between lines that do not lock the user up
constexpr int tooLate = 32'000;            // milliseconds: a request has been given up by then

QString pick(std::initializer_list<const char *> names, int number)
{
    return QString::fromLatin1(names.begin()[static_cast<std::size_t>(number) % names.size()]);
}

/// The dialog that has the user's attention; null when there is none.
QWidget *openDialog()
{
    for (const QStringView name :
         {u"frmAddUser", u"frmIgnore", u"frmOptions", u"frmNewChat", u"frmCategories"}) {
        if (QWidget *dialog = hands::window(name)) {
            return dialog;
        }
    }
    return nullptr;
}

/// Messages that no messenger would send.
QByteArray nonsense(int number)
{
    QRandomGenerator random(static_cast<quint32>(number));
    QByteArray noise(random.bounded(1, 3000), Qt::Uninitialized);
    for (char &c : noise) {
        c = static_cast<char>(random.bounded(1, 256));
    }
    const QByteArray event = "<MSG><V mk=\"MSG\"/>";
    const QByteArray messages[] = {
        noise,
        event + "<RCMSG cid=\"1\" id=\"h1\">" + noise,
        event + QByteArray("<A>").repeated(100'000),
        "<MSG><V mk=\"C99999\"/><ACKSM/><KLC r=\"0\"/></MSG>",
        event + "<CLD cid=\"9999\"/><AJC cid=\"9999\" r=\"200\"/><WHAT/></MSG>",
        QByteArray(5 << 20, 'x'),
        event + "<STATUSMOOD id=\"h1\" s=\"99999999999\" m=\"-7\"/><NAMECHANGE id=\"nobody\" n=\"\"/></MSG>",
        event + "<RCMSG cid=\"1\" id=\"h1\" tid=\"0\">\\<SMSG\\>" + QByteArray("long ").repeated(40'000) +
            "\x01</RCMSG></MSG>",
        {},
    };
    return messages[static_cast<std::size_t>(number) % std::size(messages)];
}

} // namespace

const Soak::Entry Soak::table[] = {
    // What happens elsewhere.
    {"flood", 30, By::Others, &Soak::flood},
    {"whispers", 12, By::Others, &Soak::whisper},
    {"crowd comes", 12, By::Others, [](Soak &s, int n) { s.m_proxy.crowdArrives(1 + n % 8, s.roomId()); }},
    {"crowd goes", 9, By::Others, [](Soak &s, int n) { s.m_proxy.crowdLeaves(1 + n % 12); }},
    {"skin", 9, By::Others,
     [](Soak &s, int n) {
         s.tell(u"skin " + pick({"Light", "Dark", "Missing"}, n));
     }},
    {"rumour", 18, By::Others, &Soak::spreadRumour},
    {"room closed", 2, By::Others, &Soak::closeRoom},
    {"kick", 1, By::Others,
     [](Soak &s, int) { s.tell(QStringLiteral("kick %1 %2").arg(s.roomId()).arg(s.myId())); }},
    {"offline", 1, By::Others,
     [](Soak &s, int n) {
         s.tell(QStringLiteral("offline"));
         QTimer::singleShot(n % 500, &s, [&s] { s.tell(QStringLiteral("online")); });
     }},
    // What happens on the way.
    {"late reply", 24, By::Others,
     [](Soak &s, int n) {
         s.m_proxy.arm({Fault::Kind::Late, n % 1000});
     }},
    {"lost reply", 1, By::Others,
     [](Soak &s, int n) {
         s.m_proxy.arm({n % 2 == 0 ? Fault::Kind::Lost : Fault::Kind::Late, tooLate});
     }},
    {"broken reply", 12, By::Others,
     [](Soak &s, int n) {
         s.m_proxy.arm({Fault::Kind::Broken, n});
     }},
    {"reply twice", 18, By::Others,
     [](Soak &s, int) {
         s.m_proxy.arm({Fault::Kind::Twice, 0});
     }},
    {"garbage", 18, By::Others, [](Soak &s, int n) { s.m_proxy.inject(nonsense(n)); }},
    {"pieces", 18, By::Others, [](Soak &s, int n) { s.m_proxy.setPieces(1 + n % (n % 2 == 0 ? 10 : 3000)); }},
    {"stall", 12, By::Others, [](Soak &s, int n) { s.m_proxy.stall(n % 800); }},
    {"disconnect", 1, By::Others, &Soak::disconnect},
    {"settle", 8, By::Others, [](Soak &s, int) { s.m_now.settling.start(); }},
    // What the user does.
    {"type", 60, By::User, [](Soak &s, int) { s.m_now.typed += s.typeInto(*s.m_now.box); }},
    {"send", 60, By::User, &Soak::send},
    {"emotion", 6, By::User, &Soak::sendEmotion},
    {"palette", 12, By::User, &Soak::pickEmoticon},
    {"format", 12, By::User,
     [](Soak &s,
        int n) { s.press(pick({"smdBold", "smdItalic", "smdUnderline", "smdFont", "smdEmotions"}, n)); }},
    {"look back", 18, By::User, &Soak::lookBack},
    {"scroll", 24, By::User, &Soak::scroll},
    {"copy", 12, By::User, &Soak::copy},
    {"resize", 9, By::User,
     [](Soak &s, int n) { s.m_program->window()->resize(560 + n % 500, 400 + n / 500 % 400); }},
    {"main menu", 12, By::User,
     [](Soak &s,
        int n) { s.takeFromMenu(pick({"Leave Room", "Close Room", "Program Options", "Save Session"}, n)); }},
    {"browse", 6, By::User, [](Soak &s, int) { s.takeFromMenu(QStringLiteral("Join/Create Room")); }},
    {"member menu", 30, By::User, &Soak::useMemberMenu},
    {"private window", 50, By::User, &Soak::usePrivateWindow},
};

QList<int> Soak::weights()
{
    QList<int> all;
    for (const Entry &entry : table) {
        all += entry.weight;
    }
    return all;
}

/// The user has to be done with a dialog before anything else, and wants into a room.
void Soak::take(const Step &step)
{
    const Entry &entry = table[step.what];
    m_report.step(QString::fromLatin1(entry.name), QString::number(step.number));
    if (entry.by == By::Others) {
        entry.act(*this, step.number);
        return;
    }
    if (m_depth >= mostWaits || qobject_cast<QMessageBox *>(QApplication::activeModalWidget()) != nullptr) {
        return;
    }
    ++m_depth;
    if (QWidget *dialog = openDialog()) {
        useDialog(*dialog, step.number);
    } else if (roomId() == 0 && step.number % 2 == 0) {
        takeFromMenu(QStringLiteral("Join/Create Room"));
    } else {
        entry.act(*this, step.number);
    }
    --m_depth;
}

// What happens elsewhere.

void Soak::tell(const QString &command)
{
    m_companion.write(command.toUtf8() + '\n');
}

void Soak::flood(Soak &s, int number)
{
    const int first = s.m_serial + 1;
    s.m_serial += 1 + number % 600;
    if (s.roomId() >= firstOwnRoom) { // nobody else is there
        s.m_proxy.crowdSpeaks(s.roomId(), {}, first, s.m_serial - first + 1);
        return;
    }
    for (int serial = first; serial <= s.m_serial; ++serial) {
        s.tell(QStringLiteral("say %1 n%2. and so the evening goes on :)").arg(s.roomId()).arg(serial));
    }
}

void Soak::whisper(Soak &s, int number)
{
    const int first = s.m_serial + 1;
    s.m_serial += 1 + number % 40;
    if (number % 2 == 0) {
        s.m_proxy.crowdSpeaks(s.roomId(), s.myId(), first, s.m_serial - first + 1);
        return;
    }
    for (int serial = first; serial <= s.m_serial; ++serial) {
        s.tell(QStringLiteral("whisper %1 n%2. but do not tell").arg(s.myId()).arg(serial));
    }
}

void Soak::spreadRumour(Soak &s, int number)
{
    const QString user = number % 3 == 0 ? s.myId() : QStringLiteral("h1");
    s.tell(number % 2 == 0
               ? QStringLiteral("rename %1 Name %2").arg(user).arg(number % 9)
               : QStringLiteral("status %1 %2 %3").arg(user).arg(11 + number % 5).arg(1 + number % 27));
}

/// Only a room of the user's own: the others are needed again.
void Soak::closeRoom(Soak &s, int /*number*/)
{
    if (s.m_program->state().IsRoomOwner) {
        s.tell(u"close " + QString::number(s.roomId()));
    }
}

void Soak::disconnect(Soak &s, int number)
{
    s.m_now.isBroken = true;
    ++s.m_figures.disconnects;
    s.m_proxy.breakConnection(number % 2 == 0);
    s.m_now.life.steps.resize(std::min(s.m_now.life.steps.size(), s.m_now.at + stepsWithoutLink));
}

// What the user does.

void Soak::press(const QString &button)
{
    hands::press(*m_program->window(), button);
}

void Soak::takeFromMenu(const QString &entry)
{
    press(QStringLiteral("smdMenu"));
    hands::takeEntry(entry);
}

/// What was typed.
QString Soak::typeInto(QWidget &box)
{
    QString words = u'q' + QString::number(++m_serial) + u'.';
    for (const QChar c : std::as_const(words)) {
        hands::key(box, 0, c);
    }
    return words;
}

bool Soak::mayTalk()
{
    const bool may = !m_sincePace.isValid() || m_sincePace.elapsed() > pace;
    if (may) {
        m_sincePace.start();
    }
    return may;
}

/// Now and then too fast, which locks the program up.
void Soak::send(Soak &s, int number)
{
    if (number % 16 == 0 || s.mayTalk()) {
        if (s.m_now.box->text().isEmpty()) {
            s.m_now.typed += s.typeInto(*s.m_now.box);
        }
        s.sendFrom(*s.m_now.box, s.m_now.ledger);
    }
}

void Soak::sendEmotion(Soak &s, int number)
{
    auto *list = hands::control<QListWidget>(*s.m_program->window(), QStringLiteral("lstEmotions"));
    if (list->count() > 0 && s.mayTalk()) {
        list->setCurrentRow(number % list->count());
        Q_EMIT list->itemDoubleClicked(list->currentItem());
    }
}

/// What is picked comes behind what was typed; the user takes it away again.
void Soak::pickEmoticon(Soak &s, int number)
{
    if (hands::window(u"frmEmotShow") == nullptr) {
        s.press(QStringLiteral("smdEmoticon"));
    }
    if (const QWidget *palette = hands::window(u"frmEmotShow")) {
        const auto cells = palette->findChildren<QAbstractButton *>();
        cells[number % (cells.size() - 1)]->click(); // the last one opens a page
        s.m_report.require(s.m_now.box->text().startsWith(s.m_now.typed),
                           QStringLiteral("an emoticon has taken words away"));
        s.m_now.box->setText(s.m_now.typed);
    }
}

void Soak::lookBack(Soak &s, int number)
{
    const int lines = 1 + number % 4;
    for (int at = 0; at < 2 * lines; ++at) {
        hands::key(*s.m_now.box, at < lines ? Qt::Key_Up : Qt::Key_Down, {}, Qt::ControlModifier);
    }
}

void Soak::scroll(Soak &s, int number)
{
    QScrollBar *bar = s.m_now.board->verticalScrollBar();
    bar->setValue(number % 2 == 0 ? bar->maximum() : number % (bar->maximum() + 1));
}

void Soak::copy(Soak &s, int number)
{
    const qsizetype length = s.m_now.board->document().length();
    s.m_now.board->select(length / 2, number % (length + 1));
    s.m_now.board->copy();
    s.m_now.board->select(length, length);
}

void Soak::useMemberMenu(Soak &s, int number)
{
    auto *list = hands::control<QTreeWidget>(*s.m_program->window(), QStringLiteral("grdUserList"));
    hands::key(*list, Qt::Key_Home);
    for (int at = 0; at < number % 20; ++at) {
        hands::key(*list, Qt::Key_Down);
    }
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(list, &menu);
    hands::takeEntry({}, number / 20);
}

void Soak::usePrivateWindow(Soak &s, int number)
{
    const QList<QWidget *> windows = hands::windows(u"frmPrivMsg");
    QWidget *window = windows.isEmpty() ? nullptr : windows[number % windows.size()];
    const Conversation *conversation = window == nullptr ? nullptr : s.conversationIn(window);
    if (conversation == nullptr) {
        return;
    }
    const auto [here, peer, ledger] = *conversation; // which may end while an answer is waited for
    auto &box = *hands::control<QPlainTextEdit>(*window, QStringLiteral("txtMsg"));
    const int what = number / 64 % 4;
    if (what == 0) {
        if (!s.m_now.sending.contains(&box)) {
            s.m_now.drafts.insert(peer, hands::textOf(box));
        }
        hands::press(*window, QStringLiteral("smdClose"));
    } else if (what == 1) {
        s.typeInto(box);
    } else if (s.mayTalk()) {
        s.sendFrom(box, ledger);
    }
}

void Soak::useDialog(QWidget &dialog, int number)
{
    const int what = number / 20;
    if (hands::control<QTreeView>(dialog, QStringLiteral("tvCats")) != nullptr) {
        browse(dialog, number);
    } else if (auto *id = hands::control<QLineEdit>(dialog, QStringLiteral("txtId"))) {
        id->setText(u'z' + QString::number(number % 20));
        hands::press(dialog, pick({"smdOk", "smdOk", "smdCancel"}, what));
    } else if (auto *room = hands::control<QLineEdit>(dialog, QStringLiteral("txtRoom"))) {
        room->setText(u"Room " + QString::number(number % 1000));
        hands::press(dialog, pick({"smdOk", "chkPrivate", "smdCancel"}, what));
    } else if (auto *users = hands::control<QTreeWidget>(dialog, QStringLiteral("lvList"))) {
        users->setCurrentItem(users->topLevelItem(0));
        hands::press(dialog,
                     pick({"smdAdd", "smdRemove", "optType_0", "optType_1", "smdOk", "smdCancel"}, what));
    } else if (auto *accept = hands::control<QComboBox>(dialog, QStringLiteral("cmbAccept"))) {
        accept->setCurrentIndex(number % 4);
        hands::press(dialog, pick({"smcType_0", "smcType_1", "chkEmoticons", "chkLeave", "chkIgnoreColours",
                                   "lblColour_3", "smdIgnore", "smdOk", "smdOk", "smdCancel"},
                                  what));
    }
}

void Soak::browse(QWidget &directory, int number)
{
    auto &tree = *hands::control<QTreeView>(directory, QStringLiteral("tvCats"));
    const int what = number % 8;
    if (what <= 1) {
        hands::press(directory, pick({"smdCreate", "smdCancel"}, what));
        return;
    }
    tree.expandAll();
    hands::key(tree, Qt::Key_Home); // whose rooms are asked for, if they have not been
    if (number % 3 == 0) {
        for (int at = 0; at < number / 8 % 10; ++at) {
            hands::key(tree, Qt::Key_Down);
        }
    } else {
        for (const QChar letter : QStringLiteral("Lobby")) {
            hands::key(tree, 0, letter);
        }
    }
    if (what >= 4) {
        hands::press(directory, QStringLiteral("smdOk"));
    } else if (what == 2) {
        auto *filter = hands::control<QLineEdit>(directory, QStringLiteral("txtFilter"));
        filter->setText(filter->text().isEmpty() ? QStringLiteral("ro") : QString());
    }
}
