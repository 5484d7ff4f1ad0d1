#include "family/ChangeLog.h"
#include "form518/Form0518.h"
#include "launcher/FrmConsola.h"
#include "launcher/Session.h"
#include "platform/Clock.h"
#include "support/FormDriver.h"
#include "support/TemporaryBase.h"
#include "values/Progress.h"

#include <QLabel>

namespace {

/// The launcher's window over a file, and an empty database of the server.
class FrmMudanzaTest : public testing::Test {
  protected:
    FrmMudanzaTest() { (void)Sesion(entorno).Instala(true); }
    ~FrmMudanzaTest() override { QDir::setCurrent(QDir::rootPath()); }

    /// From the page of the copies, which a key opens.
    void Muda(const QString& destino) {
        Muestra(ventana); // whatever was over it has gone
        bool abierta = false;
        AlAbrir(u"FrmMudanza", [destino, &abierta](QWidget& forma) {
            abierta = true;
            De<QLineEdit>(forma, "TxtDestino").setText(destino);
            Clic(forma, "CmdAceptar");
        });
        QTest::keyClick(&ventana, Qt::Key_A, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&abierta] { return abierta; }));
        EsperaTrabajos();
    }
    /// By its access key, to the end of the work that it starts.
    void Alt(Qt::Key letra) {
        QTest::keyClick(&ventana, letra, Qt::AltModifier);
        QTest::qWait(120); // a mnemonic holds the button down for a tenth of a second
        EsperaTrabajos();
    }
    [[nodiscard]] static QString Relato(const QString& destino, int filas, const QString& origen) {
        return u"La base quedó en '%1': 32 tablas y %2 filas, comparadas una por una.\n\nLa anterior queda como estaba,"
               " en '%3'.\n\n"_s.arg(destino)
                   .arg(filas)
                   .arg(origen);
    }
    [[nodiscard]] int Filas(const QString& ruta) const {
        const auto base = Base::Abre(ruta);
        int filas = 0;
        for (const QString& tabla : base->Tablas()) {
            Registros cuenta = base->Lee(u"SELECT count(*) FROM "_s + tabla);
            filas += cuenta.Siguiente() ? static_cast<int>(cuenta.Entero(0)) : 0;
        }
        return filas;
    }
    [[nodiscard]] QString Pie() const { return De<QLabel>(ventana, "LblBase").text(); }

    QTemporaryDir raiz;
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
    EntornoConsola entorno{
        reloj, raiz.filePath(u"XA000.INI"_s), raiz.filePath(u"xa518"_s), u"CONTADOR"_s, {Formulario0518()}};
    std::unique_ptr<BaseEnServidor> servidor = BaseEnServidor::Vacia();
    AvisosDePrueba avisos;
    FrmConsola ventana{entorno, avisos, raiz.path()};
};

} // namespace

TEST_F(FrmMudanzaTest, TheBaseMovesToAServerAndBackAndTheWindowGoesOnThere) {
    const QString archivo = raiz.filePath(u"xa518/XA000.DB"_s);
    const QString vuelta = raiz.filePath(u"vuelta.db"_s);
    Muestra(ventana);
    QCoreApplication::processEvents();
    QTest::keyClick(&ventana, Qt::Key_C, Qt::AltModifier);
    const int filas = Filas(archivo);
    avisos.Espera(u"La base ya está en un archivo: '%1'. Se muda a un servidor, con el texto de su conexión."_s.arg(
        QDir::toNativeSeparators(archivo)));
    Muda(vuelta);
    avisos.Comprueba();
    avisos.Espera(Relato(servidor->Texto(), filas, QDir::toNativeSeparators(archivo)) +
                  u"En los demás puestos ejecute consola --instalar --servidor con esa conexión."_s);
    Muda(servidor->Texto());
    avisos.Comprueba();
    EXPECT_TRUE(Pie().endsWith(servidor->Texto())) << qPrintable(Pie());
    avisos.Espera(Relato(vuelta, filas + 1, servidor->Texto()) +
                  u"Los demás puestos siguen en el servidor: no trabajan en este archivo."_s);
    Muda(vuelta);
    avisos.Comprueba();
    EXPECT_TRUE(Pie().endsWith(QDir::toNativeSeparators(vuelta))) << qPrintable(Pie());
}

TEST_F(FrmMudanzaTest, ACopyOfTheServerIsMadeAndPutBackBesideTheWindow) {
    SinAvance sinAvance;
    (void)Sesion(entorno).MudanzaA(servidor->Texto()).Muda(FirmaDe(u"ANA"_s, reloj), sinAvance);
    Muestra(ventana);
    QCoreApplication::processEvents();
    Alt(Qt::Key_C);
    avisos.Espera(u"La copia de respaldo quedó guardada en '%1'."_s.arg(
        QDir::toNativeSeparators(raiz.filePath(u"xa518/RESPALDOS/XA000-20261121-100000.dump"_s))));
    Alt(Qt::Key_H);
    avisos.Comprueba();
    Base::Abre(servidor->Texto())->Ejecuta(u"DELETE FROM CONT"_s);
    avisos.EsperaPregunta(u"¿Confirma que va a poner la base tal como estaba el 21/11/2026 10:00:00?\n\nLo que se hizo"
                          " después dejará de estar en la base, salvo los números ya dados y los informes registrados."
                          " Antes se guarda una copia de lo que hay ahora."_s,
                          Respuesta::Si);
    avisos.Espera(u"La base quedó como estaba el 21/11/2026 10:00:00."_s);
    Alt(Qt::Key_T);
    avisos.Comprueba();
    const auto base = Base::Abre(servidor->Texto());
    Registros declarantes = base->Lee(u"SELECT count(*) FROM CONT"_s);
    ASSERT_TRUE(declarantes.Siguiente());
    EXPECT_EQ(declarantes.Entero(0), 1);
}
