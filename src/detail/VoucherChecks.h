#pragma once

#include "detail/PerceptionRate.h"
#include "detail/VoucherDates.h"
#include "form518/WorkVouchers.h"

#include <QDate>
#include <QString>

#include <functional>

namespace xa518 {

/// A perception voucher as its dialog shows it.
struct DatosComprobante {
    bool contado = false; ///< `OptVentaCont`(1): a cash sale
    QString tipoCp;       ///< two digits of `CmbTipoCP`, empty until one is picked
    QString serie;
    QString numero;
    QString fecha;
    QString monto;
    bool exigeListado = false; ///< `FraListado` is enabled
    Respuestas respuestas;
};

/// Tells whether the voucher may be stored; the first fault with the field at fault. The answers about tax credit and
/// about the zone aren't required: wanted, such a voucher is stored with rate "0".
[[nodiscard]] VeredictoComprobante ValidaGrabar(const DatosComprobante& datos, Periodo declarado, const QDate& hoy);

/// A payment voucher as its dialog shows it.
struct DatosPago {
    QString tipo; ///< two digits, empty until one is picked
    QString serie;
    QString numero;
    QString fecha;
    QString monto;
};

/// The same for a payment voucher. `fechaOrigen` is asked in its turn, since it may ask the person, who may take the
/// date back there: then there is no verdict either.
using ChequeoDeFecha = std::function<std::optional<VeredictoComprobante>()>;
[[nodiscard]] std::optional<VeredictoComprobante> ValidaGrabar(const DatosPago& datos,
                                                               const ChequeoDeFecha& fechaOrigen);

/// Types of payment voucher whose series may begin with a letter: "01", "03", "07", "08".
[[nodiscard]] bool AdmiteLetras(QStringView tipo);

/// What is stored of a voucher beside its key. `med_pago` holds the answer of the earthquake zone, `OptVenta`; the one
/// about the means of payment isn't stored. Wanted: the administration reads that column so.
[[nodiscard]] CamposComprobante CamposDe(const DatosComprobante& datos, const QString& percepcion, const QString& tasa);

} // namespace xa518
