#pragma once

class Clock;
class MessageBoard;
class QLineEdit;
class SettingsFile;
class frmComms;
struct Options;
struct SharedState;

/// What private conversations need of the rest of the program. All of them must stay.
struct PrivateChat
{
    SharedState &state;
    const Options &options;
    frmComms &link;
    SettingsFile &settings;
    MessageBoard &messages;   ///< renders what is shown
    const QLineEdit &rtfText; ///< the box of the room window, whose look is taken
    Clock &clock;
};
