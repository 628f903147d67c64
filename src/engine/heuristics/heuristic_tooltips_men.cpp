#include "engine/heuristics/heuristic_tooltips.h"

// What the heuristics about single men are for.

namespace tarnwick {

const TUserText SaveQueenRookTooltip = {
    .pl =
        "Z tą heurystyką mat uznaje się za wątpliwy, gdy tylko zostaje zbita ostatnia ciężka "
        "figura białych. Jest zbiór wyjątków, na przykład nadchodząca promocja, jak w pozycji 454 "
        "w pliku sample_problems.cp",
    .en =
        "With this heuristics on checkmate is considered doubtful as soon as the last white major "
        "piece is captured. There is a set of exceptions, for example an incoming promotion like "
        "in position 454 in file sample_problems.cp",
    .uk =
        "Із цією евристикою мат вважається сумнівним, щойно взято останню важку фігуру білих. Є "
        "набір винятків, наприклад близьке перетворення, як у позиції 454 у файлі "
        "sample_problems.cp"};
const TUserText LoseNoFiguresTooltip = {
    .pl =
        "Gdy ta heurystyka jest włączona, mat uznaje się za wątpliwy, gdy tylko zostaje zbita "
        "którakolwiek biała figura (jest zbiór wyjątków, np. natychmiastowy mat).\nOpcjonalnie mat "
        "staje się wątpliwy także po zbiciu białych pionów lub białych pionów bliskich "
        "promocji.\nTa heurystyka bardzo pomaga na przykład przy rozwiązywaniu zadania 208 z pliku "
        "sample_problems.cp",
    .en =
        "When this heuristics is on, checkmate is considered doubtful as soon as any of white "
        "figures is captured (there is a set of exceptions, like immediate mate etc.)\nOptionally, "
        "also capture of white pawns or white pawns that are near promotion triggers mate "
        "doubtful.\nThis heuristics makes a big difference for example when solving problem 208 "
        "from file sample_problems.cp",
    .uk =
        "Коли цю евристику увімкнено, мат вважається сумнівним, щойно взято будь-яку білу фігуру "
        "(є набір винятків, як-от негайний мат тощо).\nЗа бажанням мат стає сумнівним також після "
        "взяття білих пішаків або білих пішаків, близьких до перетворення.\nЦя евристика дуже "
        "допомагає, наприклад, під час розв'язування задачі 208 з файлу sample_problems.cp"};
const TUserText MainDiagonalTooltip = {
    .pl =
        "Biały goniec, który zajmuje główną przekątną, nie może jej opuścić; w przeciwnym razie "
        "mat uznaje się za wątpliwy. Ta heurystyka jest przydatna tylko w bardzo szczególnych "
        "pozycjach, jak 28 i 4656 z pliku sample_problems.cp. Użyto jej również w zadaniu 133, i "
        "wykazano, że ma ona rozwiązanie uboczne",
    .en =
        "White bishop that occupies main diagonal cannot leave it - otherwise checkmate is "
        "considered doubtful. This heuristic is useful only in very specific positions like 28 and "
        "4656 from file sample_problems.cp. Another use was for problem 133 - and this composition "
        "proved to be cooked",
    .uk =
        "Білий слон, що стоїть на головній діагоналі, не може її залишити; інакше мат вважається "
        "сумнівним. Ця евристика корисна лише в дуже особливих позиціях, як-от 28 і 4656 з файлу "
        "sample_problems.cp. Її також застосовано до задачі 133, і ця композиція виявилася з "
        "побічним розв'язком"};
const TUserText PromotedTooltip = {
    .pl =
        "Gdy ta heurystyka jest włączona, mat uznaje się za wątpliwy, gdy tylko czarna figura "
        "(hetman) z promocji może się ruszyć (nie będąc pod biciem, bez natychmiastowego mata "
        "itp.)",
    .en =
        "When this heuristics is on, checkmate is considered doubtful as soon as a black promoted "
        "figure/queen can move (without en prise, immediate mate etc.)",
    .uk =
        "Коли цю евристику увімкнено, мат вважається сумнівним, щойно чорна перетворена фігура "
        "(ферзь) може піти (не під боєм, без негайного мату тощо)"};
const TUserText QueenChecksTwiceTooltip = {
    .pl =
        "Gdy ta heurystyka jest włączona, mat uznaje się za wątpliwy, gdy tylko czarny hetman po "
        "raz drugi szachuje białego króla (nie będąc pod biciem, bez natychmiastowego mata itp.)",
    .en =
        "When this heuristics is on, checkmate is considered doubtful as soon as a black queen "
        "checks white king for the second time (without en prise, immediate mate etc.)",
    .uk =
        "Коли цю евристику увімкнено, мат вважається сумнівним, щойно чорний ферзь удруге шахує "
        "білого короля (не під боєм, без негайного мату тощо)"};
const TUserText UnblockTooltip = {
    .pl =
        "Gdy ta heurystyka jest włączona, zakłada się, że czarna figura lub zbiór figur nie "
        "odejdzie ze swej początkowej pozycji dalej niż o 1 pole (nie będąc pod biciem, bez "
        "natychmiastowego mata itp.)\n\nWarto odróżnić dwa logicznie różne przypadki:\na) figurę "
        "rzeczywiście zablokowaną, której nie chcemy uwolnić, zob. np. pozycje 138, 206, 207, 212, "
        "294 w pliku sample_problems.cp\nb) figurę niezablokowaną, której jednak nie należy "
        "pozwolić się ruszyć, zob. np. pozycję 296 z pliku sample_problems.cp\nCzasem są to figury "
        "obu rodzajów, jak w pozycji 269",
    .en =
        "When this heuristics is on, black figure or a set of them is not supposed to move from "
        "its initial position more than 1 field (without en prise, immediate mate etc.)\n\nIt is "
        "worth to distinguish two logically different cases:\na) a figure that is really blocked "
        "and we don't want to let it go free, see e.g. position 138, 206, 207, 212, 294 in file "
        "sample_problems.cp\nb) a figure that is not blocked but it is not supposed to be let "
        "move, see e.g. position 296 from file sample_problems.cp\nSometimes there is a mix of "
        "such figures, like in case of positon 269",
    .uk =
        "Коли цю евристику увімкнено, вважається, що чорна фігура або кілька фігур не відійде від "
        "свого початкового місця далі ніж на 1 поле (не під боєм, без негайного мату "
        "тощо)\n\nВарто розрізняти два логічно різні випадки:\nа) фігура справді заблокована, і ми "
        "не хочемо її випустити, див. напр. позиції 138, 206, 207, 212, 294 у файлі "
        "sample_problems.cp\nб) фігура не заблокована, але їй не слід дозволяти ходити, див. напр. "
        "позицію 296 з файлу sample_problems.cp\nІноді трапляються фігури обох видів, як у позиції "
        "269"};
const TUserText UnblockDynamicTooltip = {
    .pl =
        "Ta opcja pozwala ustawiać SH_DONTLETFIGUREUNBLOCK dynamicznie, to znaczy w trakcie "
        "analizy. Czasem pozycja początkowa nie jest najlepsza do ustawienia tej heurystyki "
        "(przynajmniej dla niektórych czarnych figur).\nTa opcja jest domyślnie włączona. Gdy jest "
        "wyłączona, analiza jest nieco prostsza (ale niekoniecznie najsprawniejsza), więc program "
        "może działać stabilniej.\n\nPrzykładem kompozycji, którą można sprawnie rozwiązać dzięki "
        "dynamicznemu zastosowaniu tej heurystyki, jest pozycja 193 z pliku sample_problems.cp: po "
        "pierwszych 5 posunięciach, gdy czarny król zajmuje b2, wszystkie duże czarne figury można "
        "uznać za zablokowane.\nTakże w zadaniu 369 heurystykę tę stosuje się po pierwszych 3 "
        "posunięciach: gdy czarny król zajmuje b7 i blokuje swoje figury.",
    .en =
        "This option lets set SH_DONTLETFIGUREUNBLOCK dynamically, that is during analysis. "
        "Sometimes the initial position is not the most suitable for setting this heurisitics (or "
        "at least for some of the black pieces).\nThis is option is on by default. When this "
        "option is off, analysis is slightly simplified (but is not necesserily the most efficient "
        "one), so that the program stability may be increased.\n\nAn example of a composition that "
        "can be solved efficiently after this heuristics is applied dynamically is position 193 "
        "from file sample_problems.cp: after first 5 moves, when black king occupies b2, all the "
        "major black pieces can be considered blocked.\nAlso in case of problem 369, this "
        "heuristics is applied after first 3 moves: when black king occupies b7 and blocks its "
        "figures.",
    .uk =
        "Цей параметр дозволяє встановлювати SH_DONTLETFIGUREUNBLOCK динамічно, тобто під час "
        "аналізу. Іноді початкова позиція не найкраща для встановлення цієї евристики (принаймні "
        "для деяких чорних фігур).\nЦей параметр типово увімкнено. Коли його вимкнено, аналіз "
        "трохи простіший (але не обов'язково найефективніший), тож програма може працювати "
        "стабільніше.\n\nПриклад композиції, яку можна ефективно розв'язати завдяки динамічному "
        "застосуванню цієї евристики: позиція 193 з файлу sample_problems.cp: після перших 5 "
        "ходів, коли чорний король стоїть на b2, усі великі чорні фігури можна вважати "
        "заблокованими.\nТакож у задачі 369 цю евристику застосовують після перших 3 ходів: коли "
        "чорний король стоїть на b7 і блокує свої фігури."};
const TUserText KeyWhiteFigureTooltip = {
    .pl =
        "Ta heurystyka jest przydatna, gdy bezpiecznie stojąca biała figura wiąże ważną czarną "
        "figurę (a czarny król jest nieruchomy, więc związanie jest trwałe). Główną zaletą tej "
        "heurystyki jest to, że posunięć kluczowej białej figury (a zwłaszcza niebezpiecznych bić "
        "związanej figury) zwykle się wtedy nie rozważa.\n\nTakich pozycji jest sporo. Można je "
        "znaleźć w pliku sample_problems.cp: na przykład pozycje 655, 1895, 2976, 3072, 3117 lub "
        "3414 (można też użyć wyszukiwania według heurystyk, choć trwa ono nieco dłużej)",
    .en =
        "This heuristics is useful when there is a safely located white figure that pins an "
        "important black figure (and black king is immovable, so the position is stable as far as "
        "the pinning is concerned). The main advantage of this heuristics is that moves by the key "
        "white figure (and non-safe captures of the pinned figure in particular) are usually not "
        "considered/not analyzed when this heuristics is on.\n\nThere are quite many positions "
        "that qualify to this heuristics. You can find them in file sample_problems.cp: for "
        "example position 655, 1895, 2976, 3072, 3117 or 3414 (you can also use search by "
        "heuristics, although it is slightly time-consuming)",
    .uk =
        "Ця евристика корисна, коли є безпечно розташована біла фігура, що зв'язує важливу чорну "
        "фігуру (а чорний король нерухомий, тож зв'язка стійка). Головна перевага цієї евристики в "
        "тому, що ходи ключової білої фігури (а надто небезпечні взяття зв'язаної фігури) тоді "
        "зазвичай не розглядаються.\n\nТаких позицій досить багато. Їх можна знайти у файлі "
        "sample_problems.cp: наприклад, позиції 655, 1895, 2976, 3072, 3117 або 3414 (можна також "
        "скористатися пошуком за евристиками, хоча він трохи довгий)"};
const TUserText KeyLineTooltip = {
    .pl =
        "To heurystyka 'historyczna', obecnie nieużywana. Pomogła na przykład ustalić, że w "
        "kompozycji 133 z pliku sample_problems.cp mata w #17 obala 2...Wh5! ",
    .en =
        "This is a 'legacy'/obsolete heuristics, not used currently. For example it helped to find "
        "out that in composition 133 from file sample_problems.cp #17 mate is refuted with "
        "2...Rh5! ",
    .uk =
        "Це 'застаріла' евристика, зараз не вживана. Наприклад, вона допомогла з'ясувати, що в "
        "композиції 133 з файлу sample_problems.cp мат #17 спростовує 2...Тh5! "};
const TUserText CaptureKnightTooltip = {
    .pl =
        "Tę heurystykę należy ustawić w pozycjach, w których warunkiem mata jest zbicie czarnego "
        "skoczka.\nObecnie można ją uważać za historyczną.\nPierwotnie powstała, by ułatwić "
        "rozwiązywanie na przykład następujących kompozycji z sample_problems.cp: 590, 1894",
    .en =
        "This heuristics should be set in positions when the prerequisite for checkmate is "
        "capturing a black knight.\nCurrently it can be considered a legacy/obsolete "
        "heuristics.\nOriginally it was designed to let improve solving for example the following "
        "compositions from sample_problems.cp: 590, 1894",
    .uk =
        "Цю евристику слід установлювати в позиціях, де передумовою мату є взяття чорного "
        "коня.\nЗараз її можна вважати застарілою.\nСпочатку її створено, щоб полегшити "
        "розв'язування, наприклад, таких композицій із sample_problems.cp: 590, 1894"};

}  // namespace tarnwick
