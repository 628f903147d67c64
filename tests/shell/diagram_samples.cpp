// No test: draws the fields that tools/train_man_classifier.py learns from.
//
// Usage: tarnwick_diagram_samples SETS SEED DIAGRAMS OUTPUT. SETS is a text file of lines "name pictures PATTERN"
// and "name font FILE CHARACTERS" (see MenOfPictures, MenOfFont; "unicode" stands for the chess signs). OUTPUT
// gets 64 samples for each diagram: one byte each for the set's line, the man (0 none, else 1 + its number in
// DrawnMen), the kind of dark fields, and 32 * 32 bytes of grey.

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QTextStream>
#include <iostream>
#include <vector>

#include "chess/fields.h"
#include "diagram/field_images.h"
#include "drawn_diagrams.h"

namespace tarnwick {
namespace {

std::vector<std::unique_ptr<CDrawnMen>> ReadSets(const QString& file, std::mt19937& random) {
    QFile sets(file);
    std::vector<std::unique_ptr<CDrawnMen>> men;
    if (!sets.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return men;
    }
    const double halo = std::uniform_real_distribution<double>(-0.02, 0.05)(random);
    while (!sets.atEnd()) {
        const QStringList words = QString::fromUtf8(sets.readLine()).trimmed().split(' ');
        if (words.size() == 3 && words[1] == "pictures") {
            men.push_back(MenOfPictures(words[2]));
        } else if (words.size() == 4 && words[1] == "font") {
            men.push_back(MenOfFont(QRawFont(words[2], 100),
                                    words[3] == "unicode" ? UnicodeMen() : words[3], halo));
        } else {
            men.push_back(nullptr);
        }
        if (!men.back()) {
            std::cerr << "cannot be drawn: " << words.join(' ').toStdString() << '\n';
        }
    }
    return men;
}

/// Any man on any field, pawns of the last rank included: the classifier learns shapes alone.
TDrawnFields ManyMen(std::mt19937& random) {
    TDrawnFields fields{};
    for (TFigureCode& field : fields) {
        const auto choice = std::uniform_int_distribution<std::size_t>(0, 17)(random);
        field = choice < DrawnMen.size() ? DrawnMen[choice] : EmptyField;
    }
    return fields;
}

/// The frame as the search may find it.
TBoardFrame Displaced(const QRectF& board, std::mt19937& random) {
    std::normal_distribution<double> shift(0, 0.02 * board.width() / 8);
    return {board.left() + shift(random), board.top() + shift(random),
            board.right() + shift(random), board.bottom() + shift(random)};
}

void WriteSamples(QFile& output, int set, const TDrawnFields& men, int darkFields,
                  const TDrawnDiagram& drawn, std::mt19937& random) {
    const TGreyImage grey = ToGrey(AsBitmap(drawn.image));
    const TBoardFrame frame = Displaced(drawn.board, random);
    const auto fields = FieldImages(CGreySums(grey), frame, GreyLevels(grey, frame));
    for (std::size_t number = 0; number < fields.size(); ++number) {
        const auto man = std::ranges::find(DrawnMen, men[number]) - DrawnMen.begin() + 1;
        QByteArray sample;
        sample.append(static_cast<char>(set));
        sample.append(static_cast<char>(men[number] == EmptyField ? 0 : man));
        sample.append(static_cast<char>(darkFields));
        for (const float grey32 : fields[number]) {
            sample.append(static_cast<char>(static_cast<unsigned char>(grey32 * 255)));
        }
        output.write(sample);
    }
}

int Main(const QStringList& arguments) {
    if (arguments.size() != 5) {
        std::cerr << "Usage: tarnwick_diagram_samples SETS SEED DIAGRAMS OUTPUT\n";
        return 2;
    }
    std::mt19937 random(arguments[2].toUInt());
    QFile output(arguments[4]);
    if (!output.open(QIODevice::WriteOnly)) {
        return 1;
    }
    std::vector<std::unique_ptr<CDrawnMen>> sets;
    for (int diagram = 0; diagram < arguments[3].toInt(); ++diagram) {
        if (diagram % 50 == 0) {
            sets = ReadSets(arguments[1], random);  // again, with other halos
        }
        const int set = static_cast<int>(random() % sets.size());
        if (!sets[static_cast<std::size_t>(set)]) {
            return 1;
        }
        const auto kind = static_cast<int>(random() % 3);
        const int side = 150 + static_cast<int>(random() % 20) * static_cast<int>(random() % 38);
        TDiagramStyle style = RandomStyle(static_cast<TDarkFields>(kind), side, random);
        style.margin = 0.1;
        style.scale *= std::uniform_real_distribution<double>(0.9, 1.05)(random);
        const TDrawnFields men = ManyMen(random);
        WriteSamples(output, set, men, kind,
                     DrawDiagram(men, style, *sets[static_cast<std::size_t>(set)], random), random);
    }
    return 0;
}

}  // namespace
}  // namespace tarnwick

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    return tarnwick::Main(QGuiApplication::arguments());
}
