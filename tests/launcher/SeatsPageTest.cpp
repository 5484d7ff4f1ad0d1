#include "launcher/PagPuestos.h"

#include "data/Base.h"
#include "form518/Form0518.h"
#include "launcher/RowTable.h"
#include "launcher/Session.h"
#include "platform/Clock.h"
#include "support/FormDriver.h"
#include "support/ServerInstallation.h"
#include "support/TemporaryBase.h"

namespace {

QString Fila(const TablaFilas& tabla, int fila) {
    QStringList celdas;
    for (int columna = 0; columna < tabla.model()->columnCount(); ++columna)
        celdas.append(tabla.model()->index(fila, columna).data().toString());
    return celdas.join(u'|');
}

TEST(SeatsPage, ListsWhoWorksWhereAndClearsWhatWasLeftBehindAfterAQuestion) {
    const QTemporaryDir raiz;
    const QString rutaIni = raiz.filePath(u"XA000.INI"_s);
    const LugarDeInstalacion lugar(ArchivoPerfil(rutaIni), raiz.filePath(u"xa518"_s));
    const RelojFijo reloj(QDateTime({2026, 11, 21}, {10, 0}));
    Sesion sesion({reloj, rutaIni, raiz.filePath(u"xa518"_s), u"CONTADOR"_s, {Formulario0518()}});
    (void)sesion.Instala(false);
    const auto ana = sesion.Abre();
    const auto luis = sesion.Abre();
    (void)ana->LosPuestos()->Toma({.usuario = u"ANA"_s, .equipo = u"CAJA-2"_s, .programa = u"xa518"_s});
    (void)luis->LosPuestos()->Toma({.usuario = u"LUIS"_s, .equipo = u"CAJA-3"_s, .programa = u"xa518"_s});
    ASSERT_TRUE(ana->LosPuestos()->Ocupa({.ruc = kRucMuestra, .periodo = u"202609"_s, .formulario = u"0518"_s}));
    const QStringList pid = [&] {
        Registros fila = ana->Lee(u"SELECT pg_backend_pid()"_s);
        return fila.Siguiente() ? QStringList{fila.Texto(0)} : QStringList();
    }();
    PideAlServidor(u"SELECT pg_terminate_backend(%1, 5000)"_s.arg(pid.value(0)));

    AvisosDePrueba avisos;
    PagPuestos pagina({sesion, avisos}, nullptr);
    QObject::connect(&pagina, &Pagina::Cambio, &pagina, [&] { pagina.Carga(*sesion.Abre()); });
    pagina.Carga(*sesion.Abre());
    Muestra(pagina);
    auto& tabla = De<TablaFilas>(pagina, "GrdPuestos");
    const auto& quita = De<QPushButton>(pagina, "CmdQuitarPuesto");
    ASSERT_EQ(tabla.model()->rowCount(), 2);
    EXPECT_TRUE(Fila(tabla, 0).startsWith(u"ANA|CAJA-2|xa518|"_s)) << qPrintable(Fila(tabla, 0));
    EXPECT_TRUE(
        Fila(tabla, 0).contains(u"|Abandonado, con datos sin grabar|0518 de 09/2026, RUC 20990518018, desde"_s));
    EXPECT_TRUE(Fila(tabla, 1).endsWith(u"|En uso|"_s)) << qPrintable(Fila(tabla, 1));
    tabla.selectRow(1);
    EXPECT_FALSE(quita.isEnabled());
    tabla.selectRow(0);
    const QString pregunta =
        u"¿Confirma que va a quitar el puesto de ANA en CAJA-2?\n\nSe pierde lo que quedó sin grabar de la declaración"
        " %1."_s.arg(Fila(tabla, 0).section(u'|', -1));
    avisos.EsperaPregunta(pregunta, Respuesta::No);
    Clic(pagina, "CmdQuitarPuesto");
    EXPECT_EQ(tabla.model()->rowCount(), 2);
    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    Clic(pagina, "CmdQuitarPuesto");
    EXPECT_EQ(tabla.model()->rowCount(), 1);
}

} // namespace
