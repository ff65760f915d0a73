#include "core/options_text.h"

#include <algorithm>
#include <cmath>
#include <variant>

namespace {

constexpr qsizetype keyLength = 12;
constexpr qsizetype valueColumn = 13;
constexpr double largestFont = 200; // points

using Field = std::variant<ColourValue Options::*, bool Options::*, quint8 Options::*, AcceptMode Options::*,
                           QString ComposeFont::*, double ComposeFont::*, bool ComposeFont::*>;

struct Entry
{
    const char16_t *key;
    Field field;
};

/// In the order in which they are written.
const Entry entries[] = {
    {u"UNTC", &Options::UNTC},
    {u"UNBC", &Options::UNBC},
    {u"MMTC", &Options::MMTC},
    {u"MMBC", &Options::MMBC},
    {u"CNTC", &Options::CNTC},
    {u"CNBC", &Options::CNBC},
    {u"CMTC", &Options::CMTC},
    {u"CMBC", &Options::CMBC},
    {u"EMTC", &Options::EMTC},
    {u"EMBC", &Options::EMBC},
    {u"SNORMAL", &Options::SNORMAL},
    {u"SWARNING", &Options::SWARNING},
    {u"SERROR", &Options::SERROR},
    {u"HIGHLIGHT", &Options::HIGHLIGHT},
    {u"SHOWEMOTIONS", &Options::SHOWEMOTIONS},
    {u"DDUSERS", &Options::ShowFriendOnline},
    {u"DPINOUT", &Options::ShowEnterLeave},
    {u"IGNORECOL", &Options::IGNORECOL},
    {u"WORDFILER", &Options::WORDFILER},
    {u"ACCEPTUSER", &Options::AcceptMode},
    {u"EMOTICONS", &Options::EMOTICONS},
    {u"FONTNAME", &ComposeFont::name},
    {u"FONTSIZE", &ComposeFont::size},
    {u"FONTBOLD", &ComposeFont::bold},
    {u"FONTITAL", &ComposeFont::italic},
    {u"FONTUNDL", &ComposeFont::underlined},
};

/// Each reads one kind of value, and leaves it as it is when the text is not one.
void read(QStringView text, ColourValue &value)
{
    bool ok = false;
    const int number = text.trimmed().toInt(&ok);
    value = ok ? static_cast<ColourValue>(number) : value;
}

void read(QStringView text, bool &value)
{
    const QStringView word = text.trimmed();
    bool isNumber = false;
    const double number = word.toDouble(&isNumber);
    if (isNumber) {
        value = number != 0;
    } else if (word.compare(u"True", Qt::CaseInsensitive) == 0) {
        value = true;
    } else if (word.compare(u"False", Qt::CaseInsensitive) == 0) {
        value = false;
    }
}

void read(QStringView text, quint8 &value)
{
    bool ok = false;
    const int number = text.trimmed().toInt(&ok);
    value = ok && number >= 0 && number <= 255 ? static_cast<quint8>(number) : value;
}

void read(QStringView text, AcceptMode &value)
{
    auto number = static_cast<quint8>(value);
    read(text, number);
    value = static_cast<AcceptMode>(number);
}

void read(QStringView text, QString &value)
{
    value = text.trimmed().isEmpty() ? value : text.toString();
}

/// The number that the text starts with.
void read(QStringView text, double &value)
{
    const QStringView trimmed = text.trimmed();
    qsizetype end = 0;
    while (end < trimmed.size() && (trimmed[end] == u'.' || (trimmed[end] >= u'0' && trimmed[end] <= u'9'))) {
        ++end;
    }
    bool ok = false;
    const double number = trimmed.first(end).toDouble(&ok);
    value = ok && number >= 1 && number <= largestFont ? number : value;
}

QString write(ColourValue value)
{
    return QString::number(static_cast<qint32>(value));
}

QString write(bool value)
{
    return value ? QStringLiteral("True") : QStringLiteral("False");
}

QString write(quint8 value)
{
    return QString::number(value);
}

QString write(AcceptMode value)
{
    return QString::number(static_cast<int>(value));
}

QString write(const QString &value)
{
    return QString(value).replace(u'\r', u' ').replace(u'\n', u' ');
}

QString write(double value)
{
    return QString::number(value);
}

ColourValue &fieldOf(SavedOptions &saved, ColourValue Options::*field)
{
    return saved.options.*field;
}
bool &fieldOf(SavedOptions &saved, bool Options::*field)
{
    return saved.options.*field;
}
quint8 &fieldOf(SavedOptions &saved, quint8 Options::*field)
{
    return saved.options.*field;
}
AcceptMode &fieldOf(SavedOptions &saved, AcceptMode Options::*field)
{
    return saved.options.*field;
}
template <typename Value>
Value &fieldOf(SavedOptions &saved, Value ComposeFont::*field)
{
    return saved.font.*field;
}

} // namespace

QString optionsText(const SavedOptions &saved)
{
    SavedOptions source = saved;
    QString text;
    for (const Entry &entry : entries) {
        text += QStringView(entry.key).toString().leftJustified(valueColumn);
        text += std::visit([&](auto field) { return write(fieldOf(source, field)); }, entry.field);
        text += u"\r\n";
    }
    for (const QString &line : saved.unknownLines) {
        text += line + u"\r\n";
    }
    return text;
}

SavedOptions readOptions(QStringView text, SavedOptions defaults)
{
    for (QStringView line : text.split(u'\n')) {
        line = line.endsWith(u'\r') ? line.chopped(1) : line;
        const QStringView key = line.first(qMin(keyLength, line.size())).trimmed();
        const QStringView value = line.sliced(qMin(valueColumn, line.size()));
        const auto *entry = std::ranges::find_if(
            entries, [&](const Entry &candidate) { return key == QStringView(candidate.key); });
        if (entry != std::end(entries)) {
            std::visit([&](auto field) { read(value, fieldOf(defaults, field)); }, entry->field);
        } else if (!line.trimmed().isEmpty()) {
            defaults.unknownLines.append(line.toString());
        }
    }
    return defaults;
}

QString optionsFile(const QString &applicationFolder, const QString &skinName)
{
    return applicationFolder % skinName % u" ChatOpt.dat";
}
