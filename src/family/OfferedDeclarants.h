#pragma once

#include "values/Ruc.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace xa518 {

class Base;

/// A query with the values of its "?".
struct ConsultaSql {
    QString texto;
    QStringList valores;
};

/// Limits a query over declarations to those of the user's own declarants, whose table CONT it names "B" and in whose
/// condition its text ends. A user of kind "0" sees everybody's.
void LimitaAlUsuario(ConsultaSql& consulta, Base& base, const QString& usuario);

/// Who chooses a declarant, and for which form.
struct QuienElige {
    QString formulario;
    QString usuario;
};

/// The query for the declarants that a user may choose for a form.
[[nodiscard]] ConsultaSql SqlDeclarantes(Base& base, const QuienElige& quien);

struct DeclaranteOfrecido {
    Ruc ruc;
    QString nombre;
};
/// The rows of that query.
[[nodiscard]] QList<DeclaranteOfrecido> DeclarantesOfrecidos(Base& base, const QuienElige& quien);

} // namespace xa518
