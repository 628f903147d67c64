#pragma once

// The numbers of everything that the user can do.
//
// Menu items, keys, buttons and context menus all end in one of these. The numbers are stable: notes and
// scripts of users speak of them. Keys have numbers of their own, see accelerators.h.

namespace tarnwick {

enum class TCommand : int {
    None = 0,

    // File
    OpenDefaultFile = 120,
    OpenSampleFile = 121,
    OpenFile = 122,
    SaveFile = 123,
    SaveFileAs = 124,
    NewFile = 125,
    AppendProblems = 126,
    RemoveProblems = 128,
    ExportPgn = 703,
    Exit = 129,

    // Position
    CopyFullFen = 131,
    CopyProblem = 132,
    Paste = 133,
    PasteAsMirror = 134,
    CopyMovesInFull = 135,
    CopyMovesShort = 136,
    PositionSettingMode = 137,
    SwapColours = 138,
    RotatePosition = 139,
    UndoChange = 208,
    RedoChange = 209,
    IncreaseStipulation = 210,
    DecreaseStipulation = 211,
    IncreaseStipulationBy10 = 212,
    DecreaseStipulationBy10 = 213,
    CopyVariantsInFull = 214,
    CopyVariantsShort = 216,
    ShiftLeft = 295,
    ShiftRight = 296,
    ShiftUp = 297,
    CopyWithoutVariants = 298,
    CopyWithoutVariantsOrTags = 299,
    ShiftDown = 305,
    CopyFen = 612,
    CopyBoardPicture = 701,
    SaveBoardPicture = 702,

    // Problem
    Solve = 140,
    FindAllSolutions = 141,
    StopSolving = 142,
    PauseSolving = 143,
    ResumeSolving = 144,
    NextProblem = 145,
    PreviousProblem = 146,
    NewProblem = 147,
    MoveBack = 150,
    RedoMove = 151,
    FindBestDefence = 152,
    FindBestDefenceThoroughly = 153,
    SelectProblemNumber = 154,
    SelectProblemFromList = 155,
    FindProblem = 156,
    FindPrevious = 157,
    FindNext = 158,
    FirstProblem = 159,
    LastProblem = 160,
    AddTag = 161,
    RemoveTag = 162,
    AppendTagsOfFile = 163,
    ShowWholeMainVariant = 164,
    PreviouslyViewedProblem = 167,
    ReturnToViewedProblem = 168,
    PauseOneThread = 169,
    CommentLastMove = 176,
    TypeDirectMate = 195,
    TypeSelfmate = 196,
    TypeHelpmate = 197,
    FindSimilarPositions = 207,

    // View
    RotateView = 190,
    DarkColours = 191,
    ResizeProgressPanel = 192,

    // Variant
    SaveMainVariant = 270,
    SaveVariant = 271,
    ShowMainVariant = 274,
    AnimateMainVariant = 275,
    ShowVariant = 276,
    AnimateVariant = 277,
    StopAnimation = 278,
    RenameVariant = 279,
    RemoveVariant = 280,

    // Advanced
    Options = 170,
    SortIndications = 171,
    GenerateTable = 172,
    ShowMaxMate = 173,
    ShowPreviousMaxMate = 174,
    InformationAboutPosition = 175,
    ClearTemporaryRegister = 177,
    SaveTemporaryRegister = 178,
    ReadTemporaryRegister = 179,
    GlobalRegisterStatus = 180,
    NextPositionOfType = 181,
    PreviousPositionOfType = 182,
    DisplayPositionId = 183,
    RegressionTest = 184,
    VerifyTable = 188,
    VerifyAllTables = 189,
    SaveTemporaryRegisterAs = 193,
    ReadTemporaryRegisterFrom = 194,
    ResumeVerification = 199,
    PastePositionByIndex = 205,
    VerifyPartialTable = 206,
    QuickRegressionTest = 215,
    CheckFenCodes = 218,
    ChooseHeuristicsAndSolve = 677,
    ChooseHeuristicsAndFindAll = 679,

    // Priority
    PriorityHigh = 200,
    PriorityAboveNormal = 201,
    PriorityNormal = 202,
    PriorityBelowNormal = 203,
    PriorityLow = 204,
    /// The processor 0; further ones follow, up to 63.
    FirstProcessor = 2000,
    LastProcessor = 2063,

    // Help
    Threads = 165,
    About = 185,
    OpenReadme = 187,
    OpenManual = 198,

    // Language
    Polish = 285,
    English = 286,
    Ukrainian = 287,

    // Context menus
    CopyPositionOfThread = 250,
    CopyFenOfThread = 251,
    ShowPositionInNewInstance = 252,
    MoveToEnd = 255,
    SwapWithNextMove = 256,
    SkipToNextMove = 257,
    CommentListedMove = 290,
    ShowProgram = 300,
    CloseProgram = 310,
    OpenLink = 320,
    CopyLink = 321,
    EditDescription = 325,

    // Keys without an item in a menu
    DiagnosePosition = 695
};

}  // namespace tarnwick
