#pragma once

// Which process is this, and does another one still live: for files that belong to a process, in folders
// that several machines and containers may share.

#include <string>

namespace tarnwick {

/// Where a process lives. Within one process space of one start of one machine numbers and start times
/// of processes can be compared; an empty text is a part that the system does not tell.
struct TProcessPlace {
    std::string machine;  ///< The same from one start of the machine to the next.
    std::string boot;     ///< One start of the machine.
    std::string space;    ///< Containers have process numbers of their own.
};

/// Of this process. Letters and digits.
TProcessPlace PlaceOfThisProcess();

/// Names a process: its number, which the system uses again after its end, the moment of its start, and
/// its place. Letters, digits and "-", as a part of a file name.
std::string NameOfThisProcess();

enum class TProcessLife {
    Alive,
    Dead,
    Unknown  ///< It belongs to another machine or container, or the text is no such name.
};

/// Of the process of that name, seen from a process at that place. A name without a place, as older
/// versions wrote them, is taken for one of this place.
TProcessLife LifeOfProcess(const std::string& name,
                           const TProcessPlace& here = PlaceOfThisProcess());

}  // namespace tarnwick
