#include "engine/heuristics/heuristic_tooltips.h"

// What the heuristics about the black king are for.

namespace tarnwick {

const TUserText KingMustNotMoveTooltip = {
    .pl =
        "W przebiegu z tą heurystyką mat uznaje się za wątpliwy po każdym posunięciu czarnego "
        "króla (o ile po takim posunięciu nie ma natychmiastowego mata)",
    .en =
        "In a pass with this heuristics on checkmate is considered doubtful after any move by "
        "black king (when there is no immediate mate after such move)",
    .uk =
        "У проході з цією евристикою мат вважається сумнівним після будь-якого ходу чорного короля "
        "(якщо після такого ходу немає негайного мату)"};
const TUserText AllowExceptionsTooltip = {
    .pl =
        "Gdy ta opcja jest włączona, zakłada się, że czarny król po każdym swoim posunięciu jest "
        "zmuszony natychmiast wrócić (wyjątkiem są posunięcia ostatecznie zablokowanych czarnych "
        "pionów); w przeciwnym razie mat uznaje się za wątpliwy.\nPrzykłady takich zadań można "
        "znaleźć w pliku sample_problems.cp, np. 9233, 2578, 10773",
    .en =
        "When this option is on, black king is supposed to be forced to move back immediately "
        "after any its move (there is an exception for moves by ultimately blocked black pawns); "
        "otherwise checkmate is considered doubtful.\nExamples of such problems can be found in "
        "file sample_problems.cp, e.g. 9233, 2578, 10773",
    .uk =
        "Коли цей параметр увімкнено, вважається, що чорний король після кожного свого ходу "
        "змушений негайно повернутися (виняток: ходи остаточно заблокованих чорних пішаків); "
        "інакше мат вважається сумнівним.\nПриклади таких задач можна знайти у файлі "
        "sample_problems.cp, напр. 9233, 2578, 10773"};
const TUserText EdgeTooltip = {
    .pl =
        "Gdy ta opcja jest włączona, zakłada się, że czarny król pozostaje na linii brzegowej "
        "szachownicy; w przeciwnym razie mat uznaje się za wątpliwy (chyba że jest natychmiastowy)",
    .en =
        "When this option is on, black king is supposed to stay on the edge line of the "
        "chessboard); otherwise checkmate is considered doubtful (unless immediate mate)",
    .uk =
        "Коли цей параметр увімкнено, вважається, що чорний король лишається на крайній лінії "
        "шахівниці; інакше мат вважається сумнівним (якщо він не негайний)"};
const TUserText ExtEdgeTooltip = {
    .pl =
        "Gdy ta opcja jest włączona, zakłada się, że czarny król pozostaje na linii brzegowej "
        "szachownicy lub na linii z nią sąsiadującej; w przeciwnym razie mat uznaje się za "
        "wątpliwy (chyba że jest natychmiastowy)",
    .en =
        "When this option is on, black king is supposed to stay on the edge line of the chessboard "
        "or its adjacent line); otherwise checkmate is considered doubtful (unless immediate mate)",
    .uk =
        "Коли цей параметр увімкнено, вважається, що чорний король лишається на крайній лінії "
        "шахівниці або на сусідній із нею; інакше мат вважається сумнівним (якщо він не негайний)"};
const TUserText ExtEdgeStrictTooltip = {
    .pl =
        "Gdy ta opcja jest włączona, zakłada się, że czarny król stoi na linii sąsiadującej z "
        "linią brzegową szachownicy i może się ruszać tylko na linię brzegową; w przeciwnym razie "
        "mat uznaje się za wątpliwy (chyba że jest natychmiastowy)",
    .en =
        "When this option is on, black king is supposed to stay on the line adjacent to the "
        "chessboard edge line or move to the chessboard edge line only; otherwise checkmate is "
        "considered doubtful (unless immediate mate)",
    .uk =
        "Коли цей параметр увімкнено, вважається, що чорний король стоїть на лінії, сусідній із "
        "крайньою лінією шахівниці, і може ходити лише на крайню лінію; інакше мат вважається "
        "сумнівним (якщо він не негайний)"};
const TUserText NearCornerTooltip = {
    .pl =
        "Gdy ta opcja jest włączona, zakłada się, że czarny król pozostaje w pobliżu rogu "
        "szachownicy; w przeciwnym razie mat uznaje się za wątpliwy (chyba że jest "
        "natychmiastowy).\n\nTa heurystyka wymaga ponadto:\n1) podania największej dozwolonej "
        "odległości\n2) zaznaczenia, czy odległość liczy się w polach (np. c2 leży 3 pola od "
        "rogu), czy w posunięciach (c2 leży 2 posunięcia króla od rogu)",
    .en =
        "When this option is on, black king is supposed to stay near the corner of the chessboard; "
        "otherwise checkmate is considered doubtful (unless immediate mate).\n\nThis heuristics "
        "requires additionally:\n1) to enter the maximum allowed distance\n2) mark the radio "
        "button to specify, if distance is in squares (e.g. c2 is 3 is squares from the corner) or "
        "moves (c2 is 2 moves by King from the corner)",
    .uk =
        "Коли цей параметр увімкнено, вважається, що чорний король лишається біля кута шахівниці; "
        "інакше мат вважається сумнівним (якщо він не негайний).\n\nЦя евристика потребує "
        "також:\n1) введення найбільшої дозволеної відстані\n2) позначення, чи відстань рахується "
        "в полях (напр. c2 за 3 поля від кута), чи в ходах (c2 за 2 ходи короля від кута)"};
const TUserText SurroundedTooltip = {
    .pl =
        "W przebiegu z tą heurystyką mat uznaje się za wątpliwy, gdy wokół czarnego króla są "
        "więcej niż trzy nieatakowane pola (jest dość duży zbiór bardzo precyzyjnie dobranych "
        "wyjątków)",
    .en =
        "In a pass with this heuristics on checkmate is considered doubtful when there are more "
        "than three unattacked fields around black king (there is quite a large set of quite "
        "precisely tailored exceptions)",
    .uk =
        "У проході з цією евристикою мат вважається сумнівним, коли довкола чорного короля більше "
        "трьох неатакованих полів (є досить великий набір дуже точно дібраних винятків)"};
const TUserText DynamicRelaxationTooltip = {
    .pl =
        "Dynamiczne rozluźnianie heurystyk to rozluźnianie w trakcie analizy (zdjęcie heurystyki "
        "lub użycie mniej ścisłej) po pewnym zdarzeniu w pozycji.\n\nW tym przypadku dynamiczne "
        "rozluźnienie (zniesienie wymogu, by czarny król był trzymany przy brzegu szachownicy) "
        "może nastąpić, gdy tylko białe mają zaawansowanego piona bliskiego promocji.\n\nJest też "
        "inna opcja: dynamiczne rozluźnienie heurystyk, gdy tylko zbito pewną liczbę czarnych "
        "figur (tę liczbę trzeba podać).\n\nMożna także odroczyć sprawdzenie, co oznacza, że "
        "naruszenie heurystyki (np. gdy czarny król może opuścić brzeg szachownicy) nie działa "
        "natychmiast (mat nie jest od razu uznawany za wątpliwy), a ocenę odkłada się, by upewnić "
        "się, czy białe zdołają osiągnąć cel (mieć piona bliskiego promocji lub zbić czarne "
        "figury), który pozwala dynamicznie rozluźnić heurystyki (nie uznawać mata za wątpliwy). "
        "Przykładem takiej kompozycji jest zadanie 475 z pliku sample_problems.cp. W tej pozycji "
        "biały hetman czasami wpuszcza czarnego króla na c2 (gdy czarna wieża stoi na c1), ale "
        "jest wtedy He2+ i czarny król musi wrócić albo czarna wieża ginie (bo po Kc3 jest Hb2+)",
    .en =
        "Dynamic heuristics relaxation is a relaxation during the analysis (removal or using a "
        "less strict one) after some event in the position occurs.\n\nIn this case the dynamic "
        "heuristics relaxation (removal of having to keep the black king near the border of the "
        "chessboard) can take place as soon as white have an advanced pawn near "
        "promotion.\n\nThere is also another option to dynamically relax heuristics as soon as "
        "some black figures are captured (a number of black figures has to be specified).\n\nThere "
        "is also a possibility to defer check - which means that when the heuristics is violated "
        "(e.g. black king is able to leave the border of the chessboard), it is not immediately "
        "triggered (checkmate isn't immediately considered doubtful) but the evaluation is "
        "postponed in order to make sure if white are able to meet the target (have promotable "
        "black pawn or capture black figure(s)) that would let dynamically relax heuristics (let "
        "avoid considering checkmate doubtful). Example of such composition is problem 475 from "
        "file sample_problems.cp. In this position white queen sometimes lets black king move to "
        "c2 (while black rook on c1), but in such case there is Qe2+ and black king has to return "
        "or black rook is lost (because after Kc3 there is Qb2+)",
    .uk =
        "Динамічне послаблення евристик означає послаблення під час аналізу (зняття евристики або "
        "застосування менш суворої) після певної події в позиції.\n\nУ цьому разі динамічне "
        "послаблення (скасування вимоги тримати чорного короля біля краю шахівниці) може "
        "відбутися, щойно білі мають просунутого пішака, близького до перетворення.\n\nЄ також "
        "інший параметр: динамічно послабити евристики, щойно взято кілька чорних фігур (їх "
        "кількість треба вказати).\n\nМожна також відкласти перевірку: коли евристику порушено "
        "(напр. чорний король може залишити край шахівниці), вона не спрацьовує негайно (мат не "
        "одразу вважається сумнівним), а оцінку відкладено, щоб упевнитися, чи білі здатні досягти "
        "мети (мати пішака, близького до перетворення, або взяти чорні фігури), яка дозволить "
        "динамічно послабити евристики (не вважати мат сумнівним). Приклад такої композиції: "
        "задача 475 з файлу sample_problems.cp. У цій позиції білий ферзь іноді пускає чорного "
        "короля на c2 (коли чорна тура на c1), але тоді є Фe2+ і чорний король мусить повернутися, "
        "або чорна тура втрачається (бо після Крc3 є Фb2+)"};
const TUserText KingsNearTooltip = {
    .pl =
        "Ta heurystyka zakłada, że w końcowej pozycji matowej biały król musi stać obok czarnego. "
        "Mat uznaje się więc za wątpliwy, gdy tylko staje się to niemożliwe (biały król jest zbyt "
        "daleko od czarnego, by zdążyć do niego dojść). Ta heurystyka nadaje się zwykle tylko do "
        "miniatur, takich jak pozycje 26, 28, 114 w pliku sample_problems.cp",
    .en =
        "This heuristics assumes that white king has to be adjacent to black king in the final "
        "mating position. Thus, mate is considered doubtful as soon as this is impossible (white "
        "king is too far from black king to approach it on time). This heuristics is usually "
        "suitable for miniatures only, like positions 26, 28, 114 in file sample_problems.cp",
    .uk =
        "Ця евристика передбачає, що в кінцевій матовій позиції білий король має стояти поруч із "
        "чорним. Тому мат вважається сумнівним, щойно це стає неможливим (білий король надто "
        "далеко від чорного, щоб вчасно до нього дійти). Ця евристика зазвичай придатна лише для "
        "мініатюр, як-от позиції 26, 28, 114 у файлі sample_problems.cp"};
const TUserText DontRecedeTooltip = {
    .pl =
        "Ta heurystyka zakłada, że biały król nie powinien oddalać się od czarnego. W przeciwnym "
        "razie mat uznaje się za wątpliwy. Ta heurystyka nadaje się zwykle tylko do miniatur, "
        "takich jak pozycja 1700 w pliku sample_problems.cp",
    .en =
        "This heuristics assumes that white king should not step back from black king. Otherwise "
        "mate is considered doubtful. This heuristics is usually suitable for miniatures only, "
        "like position 1700 in file sample_problems.cp",
    .uk =
        "Ця евристика передбачає, що білий король не повинен відступати від чорного. Інакше мат "
        "вважається сумнівним. Ця евристика зазвичай придатна лише для мініатюр, як-от позиція "
        "1700 у файлі sample_problems.cp"};

}  // namespace tarnwick
