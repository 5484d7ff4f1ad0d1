#pragma once

#include "data/DeclarationKey.h"
#include "data/Process.h"
#include "platform/Clock.h"
#include "reports/PageCommands.h"
#include "support/TemporaryBase.h"

#include <functional>

namespace xa518::prueba {

struct Cliente {
    int tipoDoc = 6;
    QString numero = {};
    QVariant razon = {}; ///< or the three names of a person
    QVariant paterno = {};
    QVariant materno = {};
    QVariant nombres = {};
    QString base = QStringLiteral("100.00");
    QString percepcion = QStringLiteral("2.00");
};

struct Comprobante {
    QString numeroCliente;
    QString numero = QStringLiteral("00000001");
    QString tipo = {}; ///< of a cash sale; a perception voucher has none
    QVariant base = QStringLiteral("100.00");
    QVariant percepcion = QStringLiteral("2.00");
    QVariant cpFact = QStringLiteral("1");
    QVariant listaClie = QStringLiteral("0");
    QVariant medPago = QStringLiteral("1");
};

struct Pago {
    QString numeroCliente;
    QString comprobante = QStringLiteral("00000001");
    QString numero = QStringLiteral("00004511");
    QString tipo = QStringLiteral("01");
    QString monto = QStringLiteral("100.00");
};

class Libreta;

/// A process with a base, a folder of reports and a catalogue, and the means to put a declaration into it.
class Taller {
  public:
    Taller();

    BaseTemporal base;
    RelojFijo reloj{QDateTime(QDate(2026, 2, 9), QTime(18, 4, 5))};
    ClaveDeclaracion clave{QStringLiteral("20990518018"), QStringLiteral("202601"), kNumFormulario, false, {}};
    Proceso proceso{reloj};

    /// The head, paid in cash unless a number of cheque is given, and the boxes.
    void Cabecera(const QList<std::pair<QString, QString>>& casillas, const QString& cheque = {},
                  const QString& rectifica = QStringLiteral("0"));
    void Agrega(const Cliente& cliente);
    void Agrega(const Comprobante& comprobante);
    void Agrega(const Pago& pago);
    /// The commands of the declaration's report, or of its annex.
    void Imprime(bool anexo, Libreta& libreta);
    /// Takes every declaration out again.
    void Vacia();

    /// Does the work in one transaction: many rows in a breath.
    void DeUnaVez(const std::function<void()>& trabajo);
    /// Companies and persons in turn, each with a voucher and a payment voucher.
    void Clientes(int cuantos);

  private:
    /// Columns parted by a blank, and their values; those that are left over are nobody's.
    void Pon(const QString& tabla, const QString& columnas, const QVariantList& valores);
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
