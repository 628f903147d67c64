#include "engine/heuristics/heuristic_tooltips.h"

// What the settings of the passes are for.

namespace tarnwick {

const TUserText ForcedMateTooltip = {
    .pl =
        "Ta heurystyka pozwala znacznie przyspieszyć analizę przez ograniczenie liczby posunięć "
        "białych: rozważa się tylko posunięcia, które szachują lub grożą matem. Jest zbiór "
        "wbudowanych wyjątków.",
    .en =
        "This heuristics lets considerably speed up analysis by reducing number of moves by white: "
        "only moves that check and/or cause a mate threat are considered. There is a set of "
        "predefined/built-in exceptions.",
    .uk =
        "Ця евристика дозволяє значно прискорити аналіз, зменшуючи кількість ходів білих: "
        "розглядаються лише ходи, що шахують та/або загрожують матом. Є набір вбудованих "
        "винятків."};
const TUserText RelaxForcedTooltip = {
    .pl =
        "Tym polem można wskazać, ile przebiegów FindForcedMate jest potrzebnych. Na przykład "
        "jeśli wybrano #1, a to pole każe wykonać 2 rozluźnienia, wykonane zostaną także przebiegi "
        "FFM#1+ i FFM#2. Po ostatnim przebiegu FFM ta heurystyka jest zdejmowana.",
    .en =
        "Use this field to instruct the engine how many FindForcedMate runs are needed. For "
        "example if #1 is selected and this field specifies to perform 2 relaxations, also passes "
        "FFM#1+ and FFM#2 will be run. After last FFM run, this heuristics will be taken off.",
    .uk =
        "Цим полем можна вказати, скільки проходів FindForcedMate потрібно. Наприклад, якщо "
        "вибрано #1, а в цьому полі задано 2 послаблення, буде виконано також проходи FFM#1+ і "
        "FFM#2. Після останнього проходу FFM цю евристику буде знято."};
const TUserText SchedulerNoteTooltip = {
    .pl =
        "Uwaga: w przebiegach z heurystyką FindForcedMate planista obecnie nie działa. Włącza się, "
        "gdy tylko program zdejmie tę heurystykę.",
    .en =
        "Note that currently scheduler is not working in case of passes with FindForcedMate "
        "heuristics. It activates as soon as this heuristics is relaxed by the engine.",
    .uk =
        "Зауважте: у проходах з евристикою FindForcedMate планувальник наразі не працює. Він "
        "вмикається, щойно рушій послабить цю евристику."};
const TUserText LetRelaxTooltip = {
    .pl =
        "Okno heurystyk pokazuje zbiór heurystyk użytych w przebiegu 1. Zbiór ten może się jednak "
        "okazać zbyt ograniczający (selektywny) i w tym przebiegu można przeoczyć rozwiązania. "
        "Dlatego gdy ta opcja jest włączona (zalecane), program próbuje rozluźnić zbiór heurystyk "
        "zaraz po zakończeniu tego przebiegu. Kolejne przebiegi z heurystykami nazywają się 1, 1b, "
        "1c, 1d itd. Po prawej stronie tego pola jest mały przycisk 'Pokaż': wyświetla on całą "
        "drogę rozluźniania heurystyk. Rozluźnianie heurystyk odbywa się obecnie w pełni "
        "automatycznie i nie można zmienić jego kolejności.",
    .en =
        "Heuristics dialog window displays set of heuristics used in Pass 1. However these set of "
        "heuristics may prove to be too restrictive/selective and some solution(s) may be missed "
        "in this run. This is why, when this option is on (recommended), program tries to relax "
        "set of heuristics as soon as this pass is complete. Subsequent passes with heuristics are "
        "called 1, 1b, 1c, 1d etc. There is a small button 'Show' just on the right of this check "
        "box: you can use it in order to display the whole path of heuristics relaxation. "
        "Heuristics relaxation is currently a fully automated process and there is no possibility "
        "to change its order.",
    .uk =
        "Вікно евристик показує набір евристик, ужитих у проході 1. Проте цей набір може виявитися "
        "занадто обмежувальним (вибірковим), і в цьому проході деякі розв'язки можуть бути "
        "пропущені. Тому, коли цей параметр увімкнено (рекомендовано), програма намагається "
        "послабити набір евристик одразу після завершення цього проходу. Наступні проходи з "
        "евристиками називаються 1, 1b, 1c, 1d тощо. Праворуч від цього поля є маленька кнопка "
        "'Показати': вона виводить увесь шлях послаблення евристик. Послаблення евристик зараз "
        "відбувається цілком автоматично, і змінити його порядок неможливо."};
const TUserText FallbackTooltip = {
    .pl =
        "Ta opcja włącza dynamiczny powrót do heurystyk. Powrót do heurystyk jest działaniem "
        "odwrotnym do ich rozluźniania: po kilku posunięciach typ pozycji może się zmienić tak "
        "znacznie, że rozsądnie jest użyć w dalszym wariancie ściślejszych heurystyk, by znaleźć "
        "rozwiązanie sprawnie (szybko).\n\nPrzykładem jest pozycja 4472 z pliku "
        "sample_problems.cp: po pierwszych pięciu posunięciach typ pozycji się zmienia: biały król "
        "zajmuje dobrą pozycję, blokując czarnego piona bliskiego promocji, a czarny król jest "
        "zepchnięty na brzeg szachownicy. Można wtedy zastosować ściślejsze heurystyki, które nie "
        "pozwalają czarnemu królowi się ruszyć (każde posunięcie czarnego króla bez "
        "natychmiastowego mata oznacza odtąd 'mat wątpliwy')",
    .en =
        "This option enables dynamic heuristics fallback. Heuristics fallback is an operation "
        "opposite to heuristics relaxation: after a few/several moves the position type may change "
        "so significantly that it may be reasonable to use stricter heuristics in the remaining "
        "variant in order to obtain solution in an efficient way (fast).\n\nAn example is position "
        "4472 from file sample_problems.cp: after first five moves position type changes: white "
        "king occupies a good position blocking black pawn near promotion, while black king is "
        "forced to edge of the chessboard. Now more strict heuristics not to let black king move "
        "can be applied (any move by black king without immediate mate will now mean 'mate "
        "doubtful')",
    .uk =
        "Цей параметр вмикає динамічне повернення до евристик. Повернення до евристик є дією, "
        "протилежною до їх послаблення: після кількох ходів тип позиції може змінитися так "
        "істотно, що в решті варіанта варто застосувати суворіші евристики, щоб знайти розв'язок "
        "ефективно (швидко).\n\nПриклад: позиція 4472 з файлу sample_problems.cp: після перших "
        "п'яти ходів тип позиції змінюється: білий король займає добру позицію, блокуючи чорного "
        "пішака, близького до перетворення, а чорного короля відтіснено на край шахівниці. Тепер "
        "можна застосувати суворіші евристики, що не дають чорному королю ходити (будь-який хід "
        "чорного короля без негайного мату відтепер означає 'мат сумнівний')"};
const TUserText QuickModeTooltip = {
    .pl =
        "Tryb szybki jest w istocie dodatkową, niejawną heurystyką (nigdy nierozluźnianą, obecną "
        "nawet w przebiegu bez heurystyk), która może znacznie przyspieszyć rozwiązywanie, ale w "
        "niektórych typach pozycji może spowodować przeoczenie rozwiązania (zwłaszcza gdy po obu "
        "stronach jest mało ruchomych bierek, np. 'pojedynki' gońca ze skoczkiem). Dlatego nawet "
        "gdy tryb szybki jest włączony w opcjach, w niektórych typach pozycji program wymusza tryb "
        "bezpieczny. Tryb szybki oznacza, że każda pozycja po powtórzeniu pozycji jest dodawana do "
        "tymczasowego rejestru pozycji, w których mat uznaje się za wątpliwy.",
    .en =
        "Quick mode is in fact an additional, implicit heuristics (never relaxed, existing even in "
        "pass without heuristics) that can speed up solving significantly but in some types of "
        "positions it can cause overlooking the solution (particularly when there is a few movable "
        "pieces on both sides, e.g. 'duels' of bishop vs. knight). That's why, even if quick mode "
        "is on by config, in some types of positions the engine forces safe mode. Quick mode "
        "actually means that every position after a position repetition will be added to a "
        "temporary register of positions in which check mate is considered doubtful.",
    .uk =
        "Швидкий режим є насправді додатковою, неявною евристикою (її ніколи не послаблюють, вона "
        "діє навіть у проході без евристик), яка може значно прискорити розв'язування, але в "
        "деяких типах позицій може спричинити пропуск розв'язку (особливо коли в обох сторін мало "
        "рухомих фігур, напр. 'двобої' слона з конем). Тому навіть якщо швидкий режим увімкнено в "
        "параметрах, у деяких типах позицій рушій примусово вмикає безпечний режим. Швидкий режим "
        "означає, що кожну позицію після повторення позиції додають до тимчасового реєстру "
        "позицій, у яких мат вважається сумнівним."};

}  // namespace tarnwick
