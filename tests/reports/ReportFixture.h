#pragma once

#include "family/DeclarationKey.h"
#include "family/Process.h"
#include "form518/Form0518.h"
#include "platform/Clock.h"
#include "reports/PageCommands.h"
#include "support/TemporaryBase.h"

#include <functional>

namespace xa518::prueba {

/// Columns in which a row differs from an ordinary one.
using Columnas = QMap<QString, QVariant>;

class Libreta;

/// A process with a base, a folder of reports and a catalogue, and the means to put a declaration into it.
class Taller {
  public:
    Taller();

    BaseTemporal base;
    RelojFijo reloj{QDateTime(QDate(2026, 2, 9), QTime(18, 4, 5))};
    ClaveDeclaracion clave{.ruc = Ruc(u"20990518018"), .periodo = Periodo(2026, 1), .formulario = kNumFormulario};
    Proceso proceso{reloj, {Formulario0518()}, kNumFormulario};

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

/// Keeps the commands of a report.
class Libreta final : public DestinoInforme {
  public:
    void Recibe(const Comando& comando) override { comandos.append(comando); }
    void Termina() override {}

    /// The texts of a page, from 0, in their order.
    [[nodiscard]] QStringList Textos(int pagina) const;
    /// The text at a place; null when there is none.
    [[nodiscard]] QString TextoEn(int x, int y, int pagina = 0) const;
    [[nodiscard]] qsizetype Hojas() const { return 1 + comandos.count(Comando(NuevaHoja())); }

    QList<Comando> comandos;
};

} // namespace xa518::prueba
