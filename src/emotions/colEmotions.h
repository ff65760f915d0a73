#pragma once

#include "core/keyed_collection.h"

#include <QString>

/// One emotion: a canned action, with a text for the whole room and one for a member. "%U%" in them stands
/// for the sender's name, "%O%" for the member's.
struct clsEmotions
{
    QString Emotion; ///< its name, at most 30 characters
    QString ToRoom;  ///< at most 255 characters
    QString ToUser;  ///< at most 255 characters
};

/// All emotions in the order of their file, by name without regard to letter case; positions count from 1.
class colEmotions
{
public:
    using Pointer = KeyedCollection<clsEmotions>::Pointer;

    /// Null when the name is there already.
    Pointer Add(const QString &emotion, const QString &toUser, const QString &toRoom);

    /// Null when there is none.
    [[nodiscard]] Pointer Item(qsizetype position) const { return m_records.Item(position); }
    [[nodiscard]] Pointer Item(const QString &name) const { return m_records.Item(name.toCaseFolded()); }
    [[nodiscard]] qsizetype Count() const { return m_records.Count(); }
    void Clear() { m_records.RemoveAll(); }

private:
    KeyedCollection<clsEmotions> m_records;
};

/// Fills the collection from "emotions.dat" of the application folder, which ends with a separator. Without
/// the file nothing changes. Three lines are a record: name, text to the room, text to a member. One with too
/// long a line is passed over; a name that is there already and an incomplete record end the reading.
void LoadEmotions(colEmotions &emotions, const QString &applicationFolder);
