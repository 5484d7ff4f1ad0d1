#include "platform/TakePlace.h"

#include <QFileInfo>

#include <filesystem>

namespace xa518 {

bool TomaElLugar(const QString& archivo, const QString& nombre) {
    std::error_code falla;
    std::filesystem::rename(QFileInfo(archivo).filesystemFilePath(), QFileInfo(nombre).filesystemFilePath(), falla);
    return !falla;
}

} // namespace xa518
