#pragma once

#include "richtext/document.h"

#include <QMimeData>

#include <memory>

/// A piece of rich text for the clipboard: as plain text with the codes of its pictures, and as RTF. Either
/// is made when somebody asks for it.
class RichMime final : public QMimeData
{
    Q_OBJECT

public:
    explicit RichMime(RichDocument text);

    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] bool hasFormat(const QString &mimeType) const override;

protected:
    [[nodiscard]] QVariant retrieveData(const QString &mimeType, QMetaType type) const override;

private:
    RichDocument m_text;
};
