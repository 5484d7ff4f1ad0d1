#pragma once

#include "family/Process.h"
#include "platform/Clock.h"
#include "reports/PageCommands.h"
#include "support/TemporaryBase.h"

namespace xa518::prueba {

/// A process with a base and a folder of reports.
class ProcesoConInformes {
  public:
    explicit ProcesoConInformes(Formularios formularios = {}, QString numero = {});

    BaseTemporal base;
    RelojFijo reloj{QDateTime(QDate(2026, 2, 9), QTime(18, 4, 5))};
    Proceso proceso;
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
