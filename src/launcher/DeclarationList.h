#pragma once

#include "family/DeclarationKey.h"
#include "family/FormDescription.h"

#include <QList>
#include <QString>

namespace xa518 {

class Base;

/// The values of `estado`.
inline constexpr int kEstadoLimpia = 0;
inline constexpr int kEstadoEnviada = 1;
inline constexpr int kEstadoInconsistente = 9;

/// A declaration as a list shows it.
struct DeclaracionListada {
    ClaveDeclaracion clave;
    QString nombre; ///< the declarant's; empty when nobody is registered under the number any more
    int estado = kEstadoLimpia;
    bool rectifica = false;
    QString fechaProceso;
    // Only of a sent copy.
    QString fechaEnvio;
    QString control;
    QString orden; ///< empty until it is registered

    [[nodiscard]] QString Identidad() const; ///< tells it from every other of its list
    [[nodiscard]] QString Estado() const;    ///< in words
    [[nodiscard]] QString Rectifica() const;
};

/// Which of the two kinds a list shows.
enum class TipoDeLista { Registradas, Enviadas };

/// The declarations of these forms, of all declarants, the latest period first.
[[nodiscard]] QList<DeclaracionListada> ListaDeclaraciones(Base& base, const Formularios& formularios,
                                                           TipoDeLista cual);

/// By what each of them is told from the others, in their order.
[[nodiscard]] QStringList Identidades(const QList<DeclaracionListada>& lista);

} // namespace xa518
