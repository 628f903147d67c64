#include "engine/heuristics/heuristic_tooltips.h"

// What the heuristics for special types of positions are for.

namespace tarnwick {

const TUserText SweepingRookTooltip = {
    .pl =
        "Ta heurystyka służy do pozycji z zugzwangiem, w których biała wieża działa (zwykle) na "
        "linii 1 i zmusza czarne piony do posuwania się i do oddania się na bicie (zob. np. "
        "zadania 579 i 417 w pliku sample_problems.cp)",
    .en =
        "This heuristics is for zugzwang position type in which white rook operates (usually) on "
        "line 1 and it forces black pawns to advance and be captured (see e.g. problems 579 and "
        "417 in file sample_problems.cp)",
    .uk =
        "Ця евристика призначена для позицій із цугцвангом, у яких біла тура діє (зазвичай) на "
        "лінії 1 і змушує чорних пішаків просуватися під взяття (див. напр. задачі 579 і 417 у "
        "файлі sample_problems.cp)"};
const TUserText OneColourTooltip = {
    .pl =
        "To heurystyka 'historyczna', przeznaczona dla szczególnych pozycji z gońcami "
        "różnobarwnymi: pozwala uprościć analizę przez założenie, że: 1) białe figury ruszają się "
        "tylko po polach nieosiągalnych dla czarnych gońców 2) posunięcia czarnego gońca są "
        "pomijane (czarnym wolno zatem 'nie ruszyć się').\n\nJeden z trybów tej heurystyki jest "
        "nadal przydatny przy rozwiązywaniu zadania 656 z pliku sample_problems.cp",
    .en =
        "This is a 'legacy' heuristics dedicated to specific positions with opposite-colored "
        "bishops: it allows to simplify analysis by assuming that: 1) white pieces move only on "
        "the fields that are unreachable for black bishops 2) moves by black bishop are skipped "
        "(thus, black 'no move' is allowed).\n\nOne of the modes of this heuristics is still "
        "useful when solving p.656 from file sample_problems.cp",
    .uk =
        "Це 'застаріла' евристика для особливих позицій з різнопольними слонами: вона дозволяє "
        "спростити аналіз, припускаючи, що: 1) білі фігури ходять лише по полях, недосяжних для "
        "чорних слонів 2) ходи чорного слона пропускаються (отже, чорним дозволено 'не "
        "ходити').\n\nОдин із режимів цієї евристики досі корисний для розв'язування задачі 656 з "
        "файлу sample_problems.cp"};
const TUserText SingleQueenTooltip = {
    .pl =
        "Ta heurystyka służy do szczególnego typu pozycji, w których wszystkie bierki oprócz "
        "białego hetmana i czarnego króla są zajęte obroną, a więc nieruchome. Mata można dać na "
        "określonych polach, które można nazwać ślepymi zaułkami wirtualnej szachownicy (wyciętej "
        "przez nieruchome bierki).\n\nPrzykłady takich kompozycji można znaleźć w pliku "
        "sample_problems.cp: pozycje 378, 486, 491, 581, 294, 453, 1116, 1147, 1157 itd.\n\nWarto "
        "zauważyć, że ten typ pozycji nadaje się do własnych, wstępnie obliczonych tablic końcówek "
        "(niektóre z nich są w pakiecie instalacyjnym). Generowanie tych danych może być nieco "
        "kłopotliwe w pozycjach z ruchomymi czarnymi pionami (w takim przypadku najpierw trzeba "
        "wygenerować plik danych z tym pionem na końcowej, zablokowanej pozycji)",
    .en =
        "This heuristics is for a specific position type in which all pieces - except for white "
        "queen and black king - are engaged in defending roles and, thus, are immovable. Checkmate "
        "can be made at a specific field(s) that may be called cul-de-sacs in a virtual chessboard "
        "(carved by immovable pieces).\n\nExamples of such compositions can be found in file "
        "sample_problems.cp: position 378, 486, 491, 581, 294, 453, 1116, 1147, 1157 etc.\n\nIt is "
        "worth noting that this position type is suitable for custom precalculated endgame "
        "tablebases (some of them are included in the installation package). The process of "
        "generation of this data can be a little tricky in positions with movable black pawns (in "
        "such case data file with this pawn on the final/blocked position must be generated first)",
    .uk =
        "Ця евристика призначена для особливого типу позицій, у яких усі фігури, крім білого ферзя "
        "й чорного короля, зайняті захистом, а отже нерухомі. Мат можна дати на певних полях, які "
        "можна назвати глухими кутами віртуальної шахівниці (вирізаної нерухомими "
        "фігурами).\n\nПриклади таких композицій можна знайти у файлі sample_problems.cp: позиції "
        "378, 486, 491, 581, 294, 453, 1116, 1147, 1157 тощо.\n\nВарто зазначити, що цей тип "
        "позицій придатний для власних, наперед обчислених таблиць ендшпілів (деякі з них є в "
        "пакеті встановлення). Створення цих даних може бути дещо складним у позиціях із рухомими "
        "чорними пішаками (тоді спершу треба створити файл даних із цим пішаком на кінцевій, "
        "заблокованій позиції)"};
const TUserText ZugzwangTooltip = {
    .pl =
        "Ta heurystyka służy do wykrywania szczególnego typu pozycji z zugzwangiem. Jest bardzo "
        "przydatna zwłaszcza w kompozycjach takich jak zadanie 344 z pliku sample_problems.cp ",
    .en =
        "This heuristics is for detection a specific type of zugwang positions. In particular it "
        "is very useful in case of a composion like problem 344 from file sample_problems.cp ",
    .uk =
        "Ця евристика призначена для виявлення особливого типу позицій із цугцвангом. Зокрема, "
        "вона дуже корисна для композицій на зразок задачі 344 з файлу sample_problems.cp "};
const TUserText SeaSnakeTooltip = {
    .pl =
        "Ta heurystyka służy do szczególnego typu pozycji z obustronnym zugzwangiem (w zugzwangu "
        "są i białe, i czarne), w których czarne mają \"wahadło\" (bierkę, która ma do dyspozycji "
        "tylko dwa pola). Zwykle biały król musi wędrować, by stracić tempo na trójkącie z trzech "
        "sąsiadujących dostępnych pól.\n\nTo dość złożona heurystyka; na przykład pola zwrotne "
        "białego króla mogą się dynamicznie zmieniać zależnie od położenia czarnych pionów.\nZ "
        "powodu tej złożoności heurystyka ustawiona ręcznie prawdopodobnie nie zadziała zgodnie z "
        "oczekiwaniem (tylko gdy wykryje ją program, wszystkie wewnętrzne struktury są na pewno "
        "poprawnie wypełnione)\n\nPrzykłady takich pozycji można znaleźć w pliku "
        "sample_problems.cp: pozycje 371, 1737, 1995, 1996/9, 2524, 2563, 2564, 2565, 2728, 2783, "
        "2893, 2894, 2895, 2905, 2933, 2941, 2943, 3066, 3117, 3735, 3749, 3750, 3752, 4175, 4895, "
        "4896 itd. Można użyć wyszukiwania według tagu 'wąż morski' (lub nawet według heurystyk, "
        "choć trwa ono dłużej).",
    .en =
        "This heuristics is for a specific dual zugzwang position type (both white and black are "
        "in zugzwang) in which black have a \"pendulum\" piece (a piece that have only two "
        "available fields). Usually white king has to walk in order to perform a tempo-loss "
        "manoeuvre on a triangle consisting of three adjacent available fields.\n\nThis is a "
        "relatively complex heuristics; for example white king's turn-back fields may dynamically "
        "change dependent on position of black pawns.\nAs a result of this complexity, this "
        "heuristics will probably not work as expected, if set manually (only if detected by the "
        "engine, all the internal structures are sure to be filled properly to make it "
        "work)\n\nExamples of such positions can be found in file sample_problems.cp: positions "
        "371, 1737, 1995, 1996/9, 2524, 2563, 2564, 2565, 2728, 2783, 2893, 2894, 2895, 2905, "
        "2933, 2941, 2943, 3066, 3117, 3735, 3749, 3750, 3752, 4175, 4895, 4896 etc. Search by tag "
        "'wąż morski' (Polish for 'sea snake') may be used (or even search by heuristics, although "
        "the latter is more time-consuming).",
    .uk =
        "Ця евристика призначена для особливого типу позицій із взаємним цугцвангом (у цугцвангу і "
        "білі, і чорні), у яких чорні мають \"маятник\" (фігуру, що має лише два доступні поля). "
        "Зазвичай білий король мусить мандрувати, щоб втратити темп на трикутнику з трьох сусідніх "
        "доступних полів.\n\nЦе досить складна евристика; наприклад, поля розвороту білого короля "
        "можуть динамічно змінюватися залежно від розташування чорних пішаків.\nЧерез цю "
        "складність евристика, встановлена вручну, ймовірно, не працюватиме як очікується (лише "
        "коли її виявив рушій, усі внутрішні структури напевно заповнено правильно)\n\nПриклади "
        "таких позицій можна знайти у файлі sample_problems.cp: позиції 371, 1737, 1995, 1996/9, "
        "2524, 2563, 2564, 2565, 2728, 2783, 2893, 2894, 2895, 2905, 2933, 2941, 2943, 3066, 3117, "
        "3735, 3749, 3750, 3752, 4175, 4895, 4896 тощо. Можна шукати за тегом 'wąż morski' "
        "(польською 'морський змій') або навіть за евристиками, хоча це триває довше."};
const TUserText ReductionTooltip = {
    .pl =
        "Ta heurystyka polega na analizie pozycji uproszczonej (zredukowanej), bez niektórych "
        "białych figur. Mat uznaje się za wątpliwy, jeśli bez tych figur jest niemożliwy (na "
        "podstawie tablic końcówek Nalimova). Ta heurystyka jest przydatna tylko w miniaturach bez "
        "motywu pata i tylko wtedy, gdy tablice końcówek są dostępne (pobrane); w domyślnym "
        "pakiecie instalacyjnym są tylko końcówki 3-bierkowe: KkQ, KkR itd.",
    .en =
        "This heuristics involves analysis of a simplified/reduced position - without some white "
        "pieces. Checkmate is assumed doubtful, if even without these pieces mate is impossible "
        "(using lookup to Nalimov endgame tablebases). This heuristics is useful only for "
        "miniatures without stalemate motive and only if endgame tablebases are "
        "available/downloaded (in a default installation package only 3-piece endgames are "
        "included: KkQ, KkR etc.)",
    .uk =
        "Ця евристика аналізує спрощену (зведену) позицію без деяких білих фігур. Мат вважається "
        "сумнівним, якщо без цих фігур він неможливий (за таблицями ендшпілів Налімова). Ця "
        "евристика корисна лише для мініатюр без мотиву пату і лише тоді, коли таблиці ендшпілів "
        "доступні (завантажені); у типовому пакеті встановлення є лише 3-фігурні ендшпілі: KkQ, "
        "KkR тощо."};
const TUserText ThreeMovesTooltip = {
    .pl =
        "Ta heurystyka działa tylko na wszystkich podpozycjach z końcowym #3 i sprawdza, czy mat "
        "#3 wygląda na możliwy. Może być selektywna (przyspieszać) tylko dla pewnych typów "
        "pozycji, ale zwykle nie powinna szkodzić, dlatego dla większości zadań jest domyślnie "
        "włączona.",
    .en =
        "This heuristics works only on all subpositions with final #3 and checks if checkmate #3 "
        "looks possible. This heuristics can be selective (enhance speed) only for specific type "
        "of positions but usually should make no harm, so it is set on by default for majority of "
        "problems.",
    .uk =
        "Ця евристика працює лише на всіх підпозиціях із кінцевим #3 і перевіряє, чи мат #3 "
        "видається можливим. Вона може бути вибірковою (прискорювати) лише для певних типів "
        "позицій, але зазвичай не шкодить, тому для більшості задач її типово увімкнено."};
const TUserText SkipWorstTooltip = {
    .pl =
        "To heurystyka eksperymentalna (program nigdy nie ustawia ani nie wykrywa jej sam). Jej "
        "celem jest pomijanie tych posunięć białych, które uważa się za najgorsze, by przyspieszyć "
        "analizę.",
    .en =
        "This is an experimental heuristics (actually never set/detected automatically by the "
        "engine). Its purpose is to skip analysis of white moves that are considered the worst "
        "ones in order to speed up analysis.",
    .uk =
        "Це експериментальна евристика (рушій ніколи не встановлює й не виявляє її автоматично). "
        "Її мета: пропускати ходи білих, які вважаються найгіршими, щоб прискорити аналіз."};

}  // namespace tarnwick
