#pragma once

#include "core/chat_colours.h"
#include "core/options.h"
#include "emotions/emoticon_file.h"
#include "platform/image_list.h"

#include <QWidget>

#include <memory>

class MessageBoard;
class QGridLayout;
class QVBoxLayout;
class RichEdit;
class SkinButton;
class SkinInUse;
struct SkinSection;

/// Everything that a skin brings, on one sheet: each button, live and in each of its states, the frames, the
/// board with its colours, the icons and emoticons with their names.
class SkinSheet final : public QWidget
{
    Q_OBJECT

public:
    explicit SkinSheet(SkinInUse &skin, QWidget *parent = nullptr);
    ~SkinSheet() override;

private:
    void addHeading(const QString &text);
    void addButtons();
    void addButtonRow(QGridLayout &grid, const QString &name, SkinButton *button);
    void addPanels();
    [[nodiscard]] QWidget *makeBoard();
    [[nodiscard]] QWidget *makeMembers();
    void addColours();
    void addIcons(const SkinSection &section);
    [[nodiscard]] SkinButton *makeButton(const QString &caption = {});

    SkinInUse &m_skin;
    QVBoxLayout *m_rows;
    ImageList m_icons;
    Options m_options;
    ChatColours m_colours;
    EmoticonFile m_emoticons;
    std::unique_ptr<MessageBoard> m_messages;
};
