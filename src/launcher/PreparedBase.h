#pragma once

#include "family/FormDescription.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace xa518 {

class Base;

/// A base with the tables of these programs, and what was done to have it.
struct BasePreparada {
    std::unique_ptr<Base> base;
    QStringList hecho; ///< a line for each thing
    bool propia;       ///< this login may change its tables; always so in a file
};

/// Opens a base and makes what it lacks: the file, the tables, on a server the groups of logins and their rights.
/// Raises `Error`; `VersionAjena` for a base that a later build made, which stays untouched.
[[nodiscard]] BasePreparada PreparaBase(const QString& ruta, const Formularios& formularios);

} // namespace xa518
