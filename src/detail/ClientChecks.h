#pragma once

#include "form518/WorkClients.h"
#include "values/Message.h"
#include "values/Ruc.h"

#include <QString>

#include <functional>

namespace xa518 {

/// The fields of the client dialog that a rule may name.
enum class CampoCliente { TipoDoc, NumDoc, ApellidoP, Nombres };
using VeredictoCliente = VeredictoDe<CampoCliente>;

/// A client as its dialog shows it.
struct DatosCliente {
    CodigoDocumento codigo; ///< of `CmbTipDoc`
    QString numero;
    QString apellidoP;
    QString apellidoM;
    QString nombres; ///< of a company its one name

    [[nodiscard]] ClaveCliente Clave() const;
    [[nodiscard]] bool EsRuc() const { return codigo.EsRuc(); }
    [[nodiscard]] bool EsDeEmpresa() const;
    /// Of a company only its name is written; a person's row takes one blank in its place. Wanted: the save builds both
    /// anew from the columns of their kind.
    [[nodiscard]] NombresCliente Nombres() const;
};

/// A RUC must have eleven digits, be valid and not be the declarant's.
[[nodiscard]] VeredictoCliente ValidaRucDeCliente(const QString& numero, const Ruc& docDeclarante);

/// The checks before a client is stored, up to its names.
[[nodiscard]] VeredictoCliente ValidaParaAceptar(const DatosCliente& datos, const Ruc& docDeclarante);

/// The checks before its first voucher. The eight digits of a DNI come last here: wanted, of two
/// faults the user hears the same one as always. `yaRegistrado` is asked in its turn, after the number.
[[nodiscard]] VeredictoCliente ValidaParaComprobante(const DatosCliente& datos, const Ruc& docDeclarante,
                                                     const std::function<bool()>& yaRegistrado);

/// What is said of a number while it is typed. A RUC is looked at the moment it has eleven characters, any other number
/// with each key.
[[nodiscard]] VeredictoCliente ValidaAlTeclear(const DatosCliente& datos, const Ruc& docDeclarante,
                                               const std::function<bool()>& yaRegistrado);

/// The refusal of a client that has its row already. The words speak of the agent, whose client it is: wanted, they are
/// known so.
[[nodiscard]] VeredictoCliente ClienteRegistrado(const DatosCliente& datos);

} // namespace xa518
