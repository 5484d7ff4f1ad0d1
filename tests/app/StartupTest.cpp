#include "app/Startup.h"

#include "Printers.h"
#include "platform/SingleInstance.h"
#include "platform/SystemWindows.h"
#include "support/NoticeScript.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;

/// One window, with the launcher's title or another's.
class UnaVentana final : public VentanasDelSistema {
  public:
    explicit UnaVentana(QString titulo) : m_titulo(std::move(titulo)) {}
    QList<Manejador> Superiores() override { return {1}; }
    bool EsVisible(Manejador /*ventana*/) override { return true; }
    QString Titulo(Manejador /*ventana*/) override { return m_titulo; }
    QString Clase(Manejador /*ventana*/) override { return {}; }
    void PideCierre(Manejador /*ventana*/) override {}

  private:
    QString m_titulo;
};

/// One step of the start gives way to the next: with both at fault only the first message shows.
TEST(StartupTest, RefusesWithoutTheLauncherAndThenASecondInstance) {
    const Mensaje sinIntegrador{Icono::Critico, u"Debe ejecutar este módulo desde el Integrador del QMD."_s,
                                u"Error al ejecutar el módulo"_s};
    const Mensaje yaCorre{Icono::Informacion, u"La Aplicación ya se encuentra en ejecución."_s,
                          u"Declaración Pago Anual Impuesto a la Renta"_s};
    const QTemporaryDir marcas;
    UnaVentana consola(u"Consola Orvel de Presentaciones"_s);
    UnaVentana otra(u"Consola Orvel de Presentaciones 2"_s);
    AvisosDePrueba avisos;
    InstanciaUnica mia(u"/opt/xa518"_s, marcas.path());
    EXPECT_TRUE(PuedeArrancar(consola, mia, avisos));
    InstanciaUnica segunda(u"/opt/xa518"_s, marcas.path());
    avisos.Espera(sinIntegrador);
    EXPECT_FALSE(PuedeArrancar(otra, segunda, avisos));
    avisos.Espera(yaCorre);
    EXPECT_FALSE(PuedeArrancar(consola, segunda, avisos));
}

} // namespace
} // namespace xa518
