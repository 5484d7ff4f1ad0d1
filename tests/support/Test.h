#pragma once

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <stdexcept>

/// Lets a failed comparison show a text as text; found by its argument's own (global) namespace.
inline void PrintTo(const QString& texto, std::ostream* salida) {
    *salida << (texto.isNull() ? "(null)" : '"' + texto.toStdString() + '"');
}

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

/// The same with the ends of lines that the rules speak of, whatever the system's own are.
[[nodiscard]] inline QByteArray BytesDeTexto(const QString& ruta) {
    QByteArray bytes = BytesDe(ruta);
#ifdef Q_OS_WIN
    bytes.replace("\r\n", "\n");
#endif
    return bytes;
}

/// What nobody but the owner may do with a private file. On Windows a log or a report has what its folder has, which is
/// private.
#ifdef Q_OS_WIN
inline constexpr QFile::Permissions kDeOtros{};
#else
inline constexpr QFile::Permissions kDeOtros{0x0077};
#endif

} // namespace xa518::prueba

// Every test speaks of the system's own things.
using namespace xa518;
using namespace xa518::prueba;
using namespace Qt::StringLiterals;
