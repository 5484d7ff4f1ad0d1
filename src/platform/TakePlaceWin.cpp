#include "platform/TakePlace.h"

#include <QDir>

#include <qt_windows.h>

namespace xa518 {

/// Not by a copy, which could end half done; and back only when the disk has it.
bool TomaElLugar(const QString& archivo, const QString& nombre) {
    const std::wstring desde = QDir::toNativeSeparators(archivo).toStdWString();
    const std::wstring hasta = QDir::toNativeSeparators(nombre).toStdWString();
    return MoveFileExW(desde.c_str(), hasta.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

} // namespace xa518
