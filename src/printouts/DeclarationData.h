#pragma once

#include "family/DeclarationKey.h"
#include "values/Message.h"

#include <QHash>
#include <QString>

#include <optional>

namespace xa518 {

class Base;

/// What the print-outs of a declaration read: its head and its boxes.
struct DatosDeclaracion {
    ClaveDeclaracion clave;
    QString nombreDeclarante;

    // Columns of the head, empty when null.
    QString bcolibrad;
    QString nroCheque;
    QString efectivo;
    bool rectifica = false;
    QString controlDecl; ///< only of a sent copy, and so is the next
    QString ordenDecl;

    /// The text of a box; empty when the declaration lacks it.
    [[nodiscard]] QString Casilla(int numero) const { return m_casillas.value(numero); }
    /// Keeps a box. Those from 751 to 860 have no place and are passed over; 721, 722 and 790 are no boxes of the form.
    void GuardaCasilla(int numero, const QString& valor);

    /// Number of clients: box 501, 0 when it is missing.
    [[nodiscard]] int Clientes() const;

  private:
    QHash<int, QString> m_casillas;
};

/// Reads a declaration's boxes and head, and its declarant's name; nothing when there is no such declaration.
[[nodiscard]] std::optional<DatosDeclaracion> CargarCasillas(Base& base, const ClaveDeclaracion& clave);

/// What the user is told then.
[[nodiscard]] Mensaje NoExisteDeclaracion(const ClaveDeclaracion& clave);

/// Short names of the document types by code, of those that the reports show; for the others the name is empty.
using NombresDocumento = QHash<int, QString>;
[[nodiscard]] NombresDocumento CargarGrilla(Base& base);

/// Refused, with its message, when a declaration has no clients to list.
[[nodiscard]] Veredicto ValidaAnexos(const DatosDeclaracion& datos);

} // namespace xa518
