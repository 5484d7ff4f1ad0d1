#pragma once

#include <QFile>

#include <stdexcept>

namespace xa518::prueba {

inline void EscribeEn(const QString& ruta, const QByteArray& bytes) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::WriteOnly) || archivo.write(bytes) != bytes.size())
        throw std::runtime_error("unwritable " + ruta.toStdString());
}

[[nodiscard]] inline QByteArray BytesDe(const QString& ruta) {
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
        throw std::runtime_error("unreadable " + ruta.toStdString());
    return archivo.readAll();
}

/// What nobody but the owner may do with a private file.
inline constexpr QFile::Permissions kDeOtros{0x0077};

} // namespace xa518::prueba
