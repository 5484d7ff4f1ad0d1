#include "launcher/FrmConsola.h"

#include "launcher/Declarants.h"
#include "launcher/WindowFixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTest>

namespace xa518 {
namespace {

using namespace Qt::StringLiterals;
using prueba::kRuc;

/// Types into the field that has the focus.
void Escribe(QWidget& ventana, const QString& texto) {
    for (const QChar c : texto)
        QTest::keyClick(ventana.focusWidget(), c.toLatin1());
}

class FrmConsolaTest : public prueba::Ventana {
  protected:
    FrmConsolaTest() { Instala(); }
};

TEST_F(FrmConsolaTest, ADeclarantIsAddedByKeyboardAndAFaultKeepsWhatWasTyped) {
    Abre();
    avisos.Espera({Icono::Critico, u"El RUC '20990518019' no es válido."_s, u"Agregar declarante"_s});
    prueba::AlAbrir(u"FrmDeclarante", [](QWidget& forma) {
        Escribe(forma, u"20-990518019"_s);
        QTest::keyClick(forma.focusWidget(), Qt::Key_Return);
        Escribe(forma, u"LOS MOLLES"_s);
        QTest::keyClick(&forma, Qt::Key_A, Qt::AltModifier);
        QTest::qWait(120);
        EXPECT_TRUE(prueba::De<QLineEdit>(forma, "TxtRuc").hasFocus());
        prueba::De<QLineEdit>(forma, "TxtRuc").clear();
        Escribe(forma, u"10412345679"_s);
        prueba::Clic(forma, "CmdAceptar");
    });
    Alt(Qt::Key_A);
    TablaFilas& tabla = Tabla("GrdDeclarantes");
    EXPECT_EQ(Fila(tabla, tabla.Fila()), u"10412345679|LOS MOLLES|CONTADOR"_s);
    EXPECT_EQ(Declarantes(*LaBase()).Lista().size(), 2);
}

TEST_F(FrmConsolaTest, ADeclarantCannotBeAddedTwiceButRenamed) {
    Abre();
    const QString anterior = Declarantes(*LaBase()).Busca(kRuc)->nombre;
    avisos.Espera(u"El declarante %1 ya está registrado, con el nombre '%2'."_s.arg(kRuc, anterior));
    prueba::AlAbrir(u"FrmDeclarante", [](QWidget& forma) {
        Escribe(forma, kRuc);
        QTest::keyClick(forma.focusWidget(), Qt::Key_Return);
        Escribe(forma, u"OTRO"_s);
        prueba::Clic(forma, "CmdAceptar");
        EXPECT_TRUE(forma.isVisible());
        prueba::Clic(forma, "CmdCancelar");
    });
    Pulsa("CmdAgregar");
    EXPECT_EQ(Declarantes(*LaBase()).Busca(kRuc)->nombre, anterior);

    prueba::AlAbrir(u"FrmDeclarante", [](QWidget& forma) {
        EXPECT_FALSE(prueba::De<QLineEdit>(forma, "TxtRuc").isEnabled());
        prueba::De<QLineEdit>(forma, "TxtNombre").selectAll();
        Escribe(forma, u"QUINUALES"_s);
        prueba::De<QComboBox>(forma, "CmbUsuario").setEditText(u"JEFE"_s);
        prueba::Clic(forma, "CmdAceptar");
    });
    QTest::keyClick(&Tabla("GrdDeclarantes"), Qt::Key_Return);
    EXPECT_EQ(Fila(Tabla("GrdDeclarantes"), 0), kRuc + u"|QUINUALES|JEFE"_s);
}

TEST_F(FrmConsolaTest, ADeclarantGoesAfterAQuestionAndOnlyWithoutDeclarations) {
    Graba(u"202609"_s, 0);
    Abre();
    const QString pregunta =
        u"¿Confirma que va a eliminar al declarante %1, %2?"_s.arg(kRuc, Declarantes(*LaBase()).Busca(kRuc)->nombre);
    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    avisos.Espera(u"El declarante %1 tiene declaraciones: elimínelas primero."_s.arg(kRuc));
    Pulsa("CmdEliminarDeclarante");
    LaBase()->Ejecuta(u"DELETE * FROM CAB"_s);
    avisos.EsperaPregunta(pregunta, Respuesta::No);
    Pulsa("CmdEliminarDeclarante");
    EXPECT_EQ(avisos.Mostrados().last().preseleccionada, Respuesta::No);
    EXPECT_TRUE(Declarantes(*LaBase()).Busca(kRuc));
    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    Pulsa("CmdEliminarDeclarante");
    EXPECT_FALSE(Declarantes(*LaBase()).Busca(kRuc));
    EXPECT_FALSE(Control<QPushButton>("CmdEliminarDeclarante").isEnabled());
}

TEST_F(FrmConsolaTest, SendsOnlyWhatIsCleanAfterAQuestionAndACopy) {
    Graba(u"202609"_s, 0);
    Graba(u"202610"_s, 9);
    Abre();
    Alt(Qt::Key_R);
    TablaFilas& tabla = Tabla("GrdRegistradas");
    ASSERT_TRUE(Fila(tabla, 0).endsWith(u"|10/2026|No|20/11/2026|Con inconsistencias"_s))
        << Fila(tabla, 0).toStdString();
    avisos.Espera(u"La declaración del RUC %1 y el período 202610 fue grabada con inconsistencias: no puede ser"
                  " enviada."_s.arg(kRuc));
    Alt(Qt::Key_E);
    EXPECT_TRUE(Sesion(entorno).Copias().Lista().isEmpty());

    QTest::keyClick(&tabla, Qt::Key_Down);
    const QString pregunta =
        u"¿Confirma el envío de la declaración?\n\nRUC: %1\nNombre: %2\nPeríodo: 09/2026\n\nUna"
        " declaración enviada ya no se puede modificar."_s.arg(kRuc, Declarantes(*LaBase()).Busca(kRuc)->nombre);
    avisos.EsperaPregunta(pregunta, Respuesta::No);
    Alt(Qt::Key_E);
    EXPECT_EQ(tabla.model()->rowCount(), 2);

    avisos.EsperaPregunta(pregunta, Respuesta::Si);
    avisos.Espera(u"La declaración fue enviada.\n\nCopia enviada: 1\nNúmero de control: 10000001"_s);
    Alt(Qt::Key_E);
    EXPECT_EQ(tabla.model()->rowCount(), 1);
    EXPECT_TRUE(Fila(Tabla("GrdEnviadas"), 0).endsWith(u"|09/2026|1|No|10000001|21/11/2026|Enviada|Por registrar"_s))
        << Fila(Tabla("GrdEnviadas"), 0).toStdString();
    const QList<Respaldo> copias = Sesion(entorno).Copias().Lista();
    ASSERT_EQ(copias.size(), 1);
    const auto copia = Base::Abre(copias.first().ruta);
    Registros guardadas = copia->Lee(u"SELECT count(*) FROM CAB"_s);
    ASSERT_TRUE(guardadas.Siguiente());
    EXPECT_EQ(guardadas.Entero(0), 2);
}

TEST_F(FrmConsolaTest, ABaseInUseRefusesAndTheWindowStaysAsItWas) {
    Graba(u"202609"_s, 0);
    Abre();
    Alt(Qt::Key_R);
    {
        const auto otro = LaBase();
        otro->Ejecuta(u"BEGIN EXCLUSIVE"_s);
        QTest::keyClick(ventana.get(), Qt::Key_F5);
        EXPECT_EQ(Aviso(), prueba::kOcupada);
        EXPECT_EQ(Tabla("GrdRegistradas").model()->rowCount(), 1);
        avisos.Espera({Icono::Critico, prueba::kOcupada, u"Consola Orvel de Presentaciones"_s});
        Pulsa("CmdEnviar");
        otro->Ejecuta(u"ROLLBACK"_s);
    }
    VaYVuelve();
    EXPECT_EQ(Aviso(), QString());
    EXPECT_TRUE(ventana->isVisible());
}

TEST_F(FrmConsolaTest, ComingBackShowsWhatOthersDidAndKeepsTheChosenRow) {
    Graba(u"202607"_s, 0);
    Graba(u"202609"_s, 0);
    Abre();
    TablaFilas& tabla = Tabla("GrdRegistradas");
    Alt(Qt::Key_R);
    QTest::keyClick(&tabla, Qt::Key_Down);
    Graba(u"202610"_s, 9);
    VaYVuelve();
    ASSERT_EQ(tabla.model()->rowCount(), 3);
    EXPECT_TRUE(Fila(tabla, tabla.Fila()).contains(u"07/2026"_s));
    LaBase()->Ejecuta(u"DELETE * FROM CAB WHERE periodo = '202607'"_s);
    VaYVuelve();
    EXPECT_TRUE(Fila(tabla, tabla.Fila()).contains(u"09/2026"_s));
}

} // namespace
} // namespace xa518
