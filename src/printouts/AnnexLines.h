#pragma once

#include "form518/LawBands.h"
#include "printouts/AnnexRows.h"
#include "values/Decimal.h"

#include <QString>

namespace xa518 {

/// What vouchers come to.
struct SumasAnexo {
    int comprobantes = 0;
    Decimal base;
    Decimal percepcion;
};

/// The lines of the annex. Columns end at fixed places: a text too long for its column takes from the blanks in front
/// of the next amount, so that right edges meet.
class LineasAnexo {
  public:
    static constexpr int kAncho = 154;

    /// The flags of the vouchers and their heading changed places with the question about the zone.
    explicit LineasAnexo(Periodo periodo) : m_preguntaPorZona(PreguntaPorZona(periodo)) {}

    [[nodiscard]] QString PrimerTitulo() const;
    [[nodiscard]] QString SegundoTitulo() const;

    [[nodiscard]] static QString Cliente(const ClienteImpreso& cliente, const QString& tipoDoc);
    /// The columns of a voucher, up to those of its payment vouchers.
    [[nodiscard]] QString Comprobante(const ComprobanteImpreso& comprobante);
    [[nodiscard]] QString Contado(const ComprobanteImpreso& contado);
    /// Adds a payment voucher's columns to a voucher's; to nothing for the second and later ones, which stand under
    /// the first.
    [[nodiscard]] static QString Pago(const QString& comprobante, const PagoImpreso& pago);
    [[nodiscard]] static QString FinDeCliente(const SumasAnexo& sumas);
    [[nodiscard]] static QString Totales(const SumasAnexo& sumas);

    /// A blank and as many "_" as the report is wide, or those of the legend.
    [[nodiscard]] static const QString& RayaLarga();
    [[nodiscard]] static const QString& RayaCorta();

  private:
    const QString& Tasa(QStringView tasa);

    bool m_preguntaPorZona;
    QString m_tasa;
    QString m_tasaMostrada;
};

/// An amount in a width, right-aligned; one too wide keeps its digits and loses its commas: wanted, a
/// digit less would be another amount.
[[nodiscard]] QString MontoConComas(const Decimal& monto, int ancho);

} // namespace xa518
