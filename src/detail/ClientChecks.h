#pragma once

#include "form518/WorkClients.h"
#include "values/Message.h"

#include <QString>

#include <functional>

namespace xa518 {

/// A client's row as the dialog gets it handed over; of a new client there is none.
struct FilaCliente {
    QString tipDocPer; ///< compared by value: "06" and "6" are the same type
    QString numDocPer;
    QString desRazon;
    QString apellidoP;
    QString apellidoM;
    QString nombres;
};

/// A client as its dialog shows it.
struct DatosCliente {
    QString codigo; ///< two digits of `CmbTipDoc`, empty until one is picked
    QString numero;
    QString apellidoP;
    QString apellidoM;
    QString nombres; ///< of a company its one name

    [[nodiscard]] ClaveCliente Clave() const;
    [[nodiscard]] bool EsRuc() const { return Clave().tipoDoc == 6; }
    [[nodiscard]] bool EsDeEmpresa() const;
    [[nodiscard]] NombresCliente Nombres() const;
};

/// A RUC must have eleven digits, be valid and not be the declarant's.
[[nodiscard]] Veredicto ValidaRucDeCliente(const QString& numero, const QString& docDeclarante);

/// The checks before a client is stored, up to its names.
[[nodiscard]] Veredicto ValidaParaAceptar(const DatosCliente& datos, const QString& docDeclarante);

/// The checks before its first voucher. The eight digits of a DNI come last here: wanted. `yaRegistrado` is asked in
/// its turn, after the number.
[[nodiscard]] Veredicto ValidaParaComprobante(const DatosCliente& datos, const QString& docDeclarante,
                                              const std::function<bool()>& yaRegistrado);

/// What is said of a number while it is typed. A RUC is looked at the moment it has eleven characters, any other number
/// with each key.
[[nodiscard]] Veredicto ValidaAlTeclear(const DatosCliente& datos, const QString& docDeclarante,
                                        const std::function<bool()>& yaRegistrado);

/// The refusal of a client that has its row already. The words speak of the agent: wanted.
[[nodiscard]] Veredicto ClienteRegistrado(const DatosCliente& datos);

} // namespace xa518
