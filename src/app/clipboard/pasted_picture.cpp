#include "app/clipboard/pasted_picture.h"

#include "chess/field_transforms.h"
#include "diagram/recognition.h"

namespace tarnwick {

TPastedPicture ReadPastedPicture(const TBitmap& bitmap) {
    const TRecognizedDiagram diagram = RecognizeDiagram(bitmap);
    TPastedPicture picture;
    for (int field = 0; field < FieldCount; ++field) {
        const TRecognizedField& recognized = diagram.fields[static_cast<std::size_t>(field)];
        picture.fields[static_cast<std::size_t>(field)] = recognized.man;
        picture.doubtful |= recognized.bDoubtful ? FieldBit(field) : 0;
    }
    return picture;
}

TPastedPicture Mirrored(const TPastedPicture& picture) {
    TPastedPicture mirrored;
    for (int field = 0; field < FieldCount; ++field) {
        const TField to = TransformField(TTransform::Mirror, static_cast<TField>(field));
        mirrored.fields[to] = picture.fields[static_cast<std::size_t>(field)];
        mirrored.doubtful |= (picture.doubtful & FieldBit(field)) != 0 ? FieldBit(to) : 0;
    }
    return mirrored;
}

}  // namespace tarnwick
