#pragma once

#include <QString>

#include <ostream>

/// Lets a failed comparison show a text as text; found by its argument's own (global) namespace.
inline void PrintTo(const QString& texto, std::ostream* salida) {
    *salida << (texto.isNull() ? "(null)" : '"' + texto.toStdString() + '"');
}
