#pragma once

#include "detail/PerceptionRate.h"
#include "form518/WorkVouchers.h"
#include "values/Message.h"

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
[[nodiscard]] Veredicto ValidaGrabar(const DatosComprobante& datos, const QString& periodoDeclarado, const QDate& hoy);

/// A payment voucher as its dialog shows it.
struct DatosPago {
    QString tipo; ///< two digits, empty until one is picked
    QString serie;
    QString numero;
    QString fecha;
    QString monto;
};

/// The same for a payment voucher. `fechaOrigen` is asked in its turn, since it may ask the person.
[[nodiscard]] Veredicto ValidaGrabar(const DatosPago& datos, const std::function<Veredicto()>& fechaOrigen);

/// Types of payment voucher whose series may begin with a letter: "01", "03", "07", "08".
[[nodiscard]] bool AdmiteLetras(QStringView tipo);

/// What is stored of a voucher beside its key. `med_pago` holds the answer of the earthquake zone, `OptVenta`; the one
/// about the means of payment isn't stored. Wanted: the administration reads that column so.
[[nodiscard]] CamposComprobante CamposDe(const DatosComprobante& datos, const QString& percepcion, const QString& tasa);

} // namespace xa518
