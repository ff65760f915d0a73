#pragma once

#include "platform/skin_pictures.h"
#include "platform/skin_storage.h"
#include "tools/skin/authored_skin.h"

#include <QMap>

#include <optional>
#include <vector>

enum class Severity
{
    Warning,
    Error
};

/// One thing that is wrong with a skin.
struct Finding
{
    Severity severity = Severity::Error;
    TomlPlace place;
    QString text; ///< "[Section] Key: what is wrong and what to do"
};

/// A skin while it is looked through: its pictures, read once each, and what was found so far.
class SkinInspection
{
public:
    explicit SkinInspection(AuthoredSkin &skin) : m_skin(skin) {}

    [[nodiscard]] const AuthoredSkin &skin() const { return m_skin; }

    void error(SkinKeyName name, const QString &text) { add(Severity::Error, name, text); }
    void warning(SkinKeyName name, const QString &text) { add(Severity::Warning, name, text); }
    [[nodiscard]] std::vector<Finding> takeFindings() { return std::move(m_findings); }

    /// Reads the picture that the key names; what is wrong with it or its finer one is found.
    void readPicture(SkinKeyName name, const QString &file);

    /// The key's picture at 100 %; null when there is none that could be read.
    [[nodiscard]] QImage picture(SkinKeyName name) const;

private:
    void add(Severity severity, SkinKeyName name, const QString &text);
    void readFinePicture(SkinKeyName name, const QString &file, QSize coarse);

    AuthoredSkin &m_skin;
    SkinPictures m_reader;
    QMap<QString, QImage> m_pictures; ///< by the key's label
    std::vector<Finding> m_findings;
};

/// "16 x 20 pixels".
[[nodiscard]] QString sizeWords(QSize size);
