#pragma once

class QLineEdit;
class QListWidget;
class QTreeWidget;
class QWidget;
class RichEdit;
class SkinButton;
class SkinFrame;

/// The controls of the room window, under their names. The window owns them.
struct RoomControls
{
    explicit RoomControls(QWidget &window);

    SkinFrame *skfMsg;
    SkinFrame *skfUsers;
    SkinFrame *skfText;
    SkinFrame *skfEmotions;
    RichEdit *rtfMsgs;
    QTreeWidget *grdUserList;
    QLineEdit *rtfText;
    QListWidget *lstEmotions;
    SkinButton *smdBold;
    SkinButton *smdItalic;
    SkinButton *smdUnderline;
    SkinButton *smdFont;
    SkinButton *smdEmoticon;
    SkinButton *smdEmotions;
    SkinButton *smdSend;
    SkinButton *smdMenu;
    SkinButton *smdExit;
    SkinButton *sysClose;
    SkinButton *sysMin;
    SkinButton *sysHelp;
    QWidget *imgBanner = nullptr; ///< null where there is no banner
};
