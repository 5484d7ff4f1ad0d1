#pragma once

#include "family/DeclarationKey.h"
#include "form518/Form0518.h"
#include "reports/ReportFixture.h"

#include <functional>

namespace xa518::prueba {

/// Columns in which a row differs from an ordinary one.
using Columnas = QMap<QString, QVariant>;

/// The catalogue too, and the means to put a declaration into the base.
class Taller : public ProcesoConInformes {
  public:
    Taller();

    ClaveDeclaracion clave{.ruc = Ruc(kRucMuestra), .periodo = Periodo(2026, 1), .formulario = kNumFormulario};

    /// The head, paid in cash unless a number of cheque is given, and the boxes.
    void Cabecera(const QList<std::pair<QString, QString>>& casillas, const QString& cheque = {},
                  const QString& rectifica = QStringLiteral("0"));
    void Cliente(const QString& numero, const QVariant& razon, const Columnas& otras = {});
    /// A perception voucher; with a type, a cash sale.
    void Comprobante(const QString& cliente, const QString& numero, const Columnas& otras = {});
    void Pago(const QString& cliente, const QString& comprobante, const QString& numero, const Columnas& otras = {});
    /// The commands of the declaration's report, or of its annex.
    void Imprime(bool anexo, Libreta& libreta);
    /// Takes every declaration out again.
    void Vacia();

    /// Does the work in one transaction: many rows in a breath.
    void DeUnaVez(const std::function<void()>& trabajo);
    /// Companies and persons in turn, each with a voucher and a payment voucher.
    void Clientes(int cuantos);

  private:
    void Pon(const QString& tabla, Columnas fila, const Columnas& otras = {});
};

} // namespace xa518::prueba
