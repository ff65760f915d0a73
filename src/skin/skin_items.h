#pragma once

/// The items of the skin description, one enumeration for each accessor. The numbers are the interface.

enum class FormItem : int
{
    MaskColour = 0,
    TopLeft = 2,
    Top = 3,
    TopRight = 4,
    Left = 5,
    Right = 6,
    BottomLeft = 7,
    Bottom = 8,
    BottomRight = 9,
    BackColour = 10,
    UnFocusColour = 11,
    CaptionForeColour = 12,
    CaptionShadowColour = 13,
    CaptionShadowOffset = 14,
    CaptionBackColour = 15,
    CaptionFont = 16,
    ForeColour = 17,
    Font = 18,
    BoldForeColour = 19,
    BoldFont = 20,
    InputForeColour = 21,
    InputBackColour = 22,
    InputFont = 23,
    NormalSysClose = 24,
    OverSysClose = 25,
    ClickedSysClose = 26,
    NormalSysMin = 27,
    OverSysMin = 28,
    ClickedSysMin = 29,
    NormalSysHelp = 30,
    OverSysHelp = 31,
    ClickedSysHelp = 32,
    ReloadSystemButtons = 33,  ///< an action
    ReleaseSystemButtons = 34, ///< an action
};

enum class ButtonItem : int
{
    Font = 0,
    ForeColour = 1,
    ShadowColour = 2,
    DisabledColour = 3,
    DisabledShadowColour = 4,
    Normal = 5,
    Over = 6,
    Clicked = 7,
    Disabled = 8,
    HasFocus = 9,
    Mask = 10,
};

enum class FrameItem : int
{
    TopLeft = 0,
    Top = 1,
    TopRight = 2,
    Left = 3,
    Right = 4,
    BottomLeft = 5,
    Bottom = 6,
    BottomRight = 7,
    BackColour = 8,
};

enum class MenuItem : int
{
    Font = 0,
    BackGround = 1,
    BackColour = 2,
    TextColour = 3,
    TextDisabledColour = 4,
    TextShadowColour = 5,
    TextHighlightColour = 6,
    GradientColour = 7,
    HeaderBackColour = 8,
    HeaderTextColour = 9,
};

enum class ListItem : int
{
    BackColour = 0,
    ForeColour = 1,
    OnlineForeColour = 2,
    OfflineForeColour = 3,
    HeadingBackColour = 4,
    HeadingForeColour = 5,
    Font = 6,
    HighlightBackColour = 7,
    HighlightForeColour = 8,
    SearchBackColour = 9,
    SearchForeColour = 10,
    SearchFont = 11,
};

/// The six bitmaps of a button group follow its first item in the order normal, over, clicked, disabled,
/// has-focus, mask; its caption text comes after them.
enum class RoomItem : int
{
    BoardBackground = 0,
    BoardBackColour = 1,
    BoardFont = 2,
    MessageForeColour = 3,
    MessageBackColour = 4,
    ChattersMessageForeColour = 5,
    ChattersMessageBackColour = 6,
    ServerMessage = 7,
    ServerMessageWarning = 8,
    ServerMessageError = 9,
    EmotionsForeColour = 10,
    EmotionsBackColour = 11,
    UsernameForeColour = 12,
    UsernameBackColour = 13,
    ChattersNameForeColour = 14,
    ChattersNameBackColour = 15,
    ButtonFont = 16,
    ButtonForeColour = 17,
    ButtonShadowColour = 18,
    ButtonDisabledColour = 19,
    ButtonDisabledShadowColour = 20,
    NormalFormat = 21,
    OverFormat = 22,
    ClickedFormat = 23,
    DisabledFormat = 24,
    HasFocusFormat = 25,
    DownFormat = 26,
    MaskFormat = 27,
    BoldOverlay = 28,
    ItalicOverlay = 29,
    UnderlineOverlay = 30,
    EmoticonOverlay = 31,
    HasOverlays = 32, ///< 1 once the section has been read, else 0
    EmoticonToWebsite = 33,
    NormalFont = 34,
    FontText = 40,
    NormalEmotions = 41,
    EmotionsText = 47,
    NormalSend = 48,
    SendText = 54,
    NormalMenu = 55,
    MenuText = 61,
    NormalExit = 62,
    ExitText = 68,
};

enum class OptionsItem : int
{
    LoadSelectButton = 0,    ///< an action
    ReleaseSelectButton = 1, ///< an action
    ButtonFont = 2,
    ButtonForeColour = 3,
    ButtonShadowColour = 4,
    ButtonDisabledColour = 5,
    ButtonDisabledShadowColour = 6,
    NormalSelect = 7,
    OverSelect = 8,
    ClickedSelect = 9,
    DisabledSelect = 10,
    HasFocusSelect = 11,
    MaskSelect = 12,
    DownSelect = 13,
};

enum class PrivateItem : int
{
    AcquireInfoButton = 0, ///< an action
    ReleaseInfoButton = 1, ///< an action
    NormalInfo = 2,
    OverInfo = 3,
    ClickedInfo = 4,
    DisabledInfo = 5,
    HasFocusInfo = 6,
    MaskInfo = 7,
};
