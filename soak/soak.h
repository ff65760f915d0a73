#pragma once

#include "app/program.h"
#include "platform/addresses.h"
#include "soak/chaos_proxy.h"
#include "soak/hands.h"
#include "soak/ledger.h"
#include "soak/storm.h"
#include "soak/turn_watch.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QProcess>
#include <QTimer>

#include <memory>
#include <vector>

class QLineEdit;
class Report;
class RichEdit;

/// One client after another lives through the storm that is dealt, and everything that it does is checked
/// against what the proxy knows. It owns the client of the moment; the companion and the proxy outlive them
/// all.
class Soak final : public QObject
{
    Q_OBJECT

public:
    struct Figures
    {
        double seconds = 0;
        int lives = 0;
        int unstarted = 0; ///< the messenger did not answer well when they started
        int disconnects = 0;
        int sent = 0; ///< lines, by the user
        int acknowledged = 0;
        int told = 0;                 ///< lines that were delivered to the client
        qsizetype shown = 0;          ///< of them, in the rooms and windows that were open
        double longestWait = 0;       ///< seconds that a request waited for its answer
        double longestExit = 0;       ///< seconds from the wish to end to the end
        std::vector<double> heap;     ///< KiB in use after each life
        std::vector<double> resident; ///< KiB
    };

    Soak(TurnWatch &watch, Report &report, ChaosProxy &proxy, quint16 proxyPort, QProcess &companion,
         const QString &home, quint32 seed);
    ~Soak() override;

    /// Begins no new life after that many seconds, or when so many have been lived.
    void run(int seconds, int lives);

    [[nodiscard]] const Figures &figures() const { return m_figures; }
    /// Milliseconds of CPU that a turn of the event loop may take: more than is allowed to people's programs
    /// where sanitizers slow this one down.
    [[nodiscard]] static double turnLimit();

private:
    enum class By
    {
        Others,
        User, ///< waits where a user has to wait
    };
    struct Entry
    {
        const char *name;
        int weight; ///< how often it comes, compared with the others
        By by;
        void (*act)(Soak &soak, int number);
    };
    static const Entry table[];
    [[nodiscard]] static QList<int> weights();

    /// The window of a private conversation.
    struct Conversation
    {
        QPointer<QWidget> window;
        QString peer;
        std::shared_ptr<Ledger> ledger;
    };

    /// The present life.
    struct Now
    {
        Life life;
        qsizetype at = 0; ///< the next step
        QPointer<RichEdit> board;
        QPointer<QLineEdit> box;
        QString typed; ///< what has to stand in the box
        QString sent;  ///< from there, last
        int sentRoom = 0;
        std::shared_ptr<Ledger> ledger; ///< of the board
        std::vector<Conversation> conversations;
        QHash<QString, QString> drafts; ///< left in closed windows, by the peer
        QSet<QString> acknowledged;
        QSet<const QWidget *> sending; ///< boxes whose words are on their way
        bool isBroken = false;         ///< the connection
        bool isEnding = false;
        bool hasEnded = false;
        QElapsedTimer since;    ///< the beginning
        QElapsedTimer settling; ///< valid while everything that is under way is waited for
        QElapsedTimer exit;     ///< the wish to end
        QElapsedTimer sinceEnd;
    };

    void live(const Life &life);
    [[nodiscard]] QStringList arguments() const;
    void next();
    void take(const Step &step);
    void wayOut();
    void awaitEnd();
    [[nodiscard]] int roomId() const { return m_program->state().CurrentRoomID; }
    [[nodiscard]] QString myId() const { return m_program->state().MyUserID; }

    // What happens elsewhere; the number decides about the rest.
    void tell(const QString &command);
    static void flood(Soak &s, int number);
    static void whisper(Soak &s, int number);
    static void spreadRumour(Soak &s, int number);
    static void closeRoom(Soak &s, int number);
    static void disconnect(Soak &s, int number);

    // What the user does.
    void press(const QString &button);
    void takeFromMenu(const QString &entry);
    QString typeInto(QWidget &box);
    [[nodiscard]] bool mayTalk();
    static void send(Soak &s, int number);
    static void sendEmotion(Soak &s, int number);
    static void pickEmoticon(Soak &s, int number);
    static void lookBack(Soak &s, int number);
    static void scroll(Soak &s, int number);
    static void copy(Soak &s, int number);
    static void useMemberMenu(Soak &s, int number);
    static void usePrivateWindow(Soak &s, int number);
    void useDialog(QWidget &dialog, int number);
    void browse(QWidget &directory, int number);

    // What is checked.
    void sendFrom(QWidget &box, const std::shared_ptr<Ledger> &ledger);
    void look();
    void lookAtPrivateWindows();
    [[nodiscard]] const Conversation *conversationIn(const QWidget *window) const; ///< null for none
    void sort(const QList<Delivered> &delivered);
    void checkBox();
    void checkWaits();
    [[nodiscard]] bool isWaiting() const; ///< for an answer
    [[nodiscard]] bool isSettled() const;
    void measureMemory();

    TurnWatch &m_watch;
    Report &m_report;
    ChaosProxy &m_proxy;
    quint16 m_proxyPort;
    QProcess &m_companion;
    QString m_home;
    Storm m_storm;
    PressingPrompts m_prompts;
    SoakClock m_clock{m_watch};
    DesktopAddresses m_addresses{{}};
    int m_serial = 0; ///< no two lines have the same

    std::unique_ptr<Program> m_program; ///< of the present life
    Now m_now;
    int m_stay = 0;
    int m_depth = 0; ///< of the user's doings that wait
    QTimer m_ending; ///< looks whether the end has come
    QElapsedTimer m_sincePace;

    Figures m_figures;
};
