#include "Await.h"
#include "Measure.h"
#include "Pause.h"
#include "SavedSample.h"

#include "declaration/Frm518.h"
#include "family/Process.h"
#include "platform/Clock.h"
#include "platform/FileDialogs.h"
#include "platform/Notices.h"
#include "printouts/frmImprimir.h"
#include "reports/PrintReport.h"
#include "widgets/StatusBar.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include <cstdio>
#include <functional>
#include <stdexcept>

using namespace xa518;
using namespace xa518::medida;
using namespace Qt::StringLiterals;

namespace {

/// Takes what is told.
class Callado final : public Avisos {
    void HazMuestra(const Mensaje& mensaje) override {
        if (mensaje.icono == Icono::Critico)
            throw std::runtime_error(mensaje.texto.toStdString());
    }
    Respuesta HazPregunta(const Mensaje& /*mensaje*/, Respuesta /*preseleccionada*/) override { return Respuesta::No; }
    Respuesta HazPreguntaConOtra(const Mensaje& /*mensaje*/, const QString& /*otra*/) override { return Respuesta::No; }
};

class UnArchivo final : public DialogosDeArchivo {
  public:
    explicit UnArchivo(QString ruta) : m_ruta(std::move(ruta)) {}
    QString PideArchivo(const ArchivoPedido& /*pedido*/) override { return m_ruta; }
    QString PideCarpeta(const QString& /*titulo*/, const QString& /*desde*/) override { return {}; }

  private:
    QString m_ruta;
};

/// Does it, waits for its end, and says what it cost and how long its window didn't answer.
void Informa(const char* que, const std::function<void()>& trabajo) {
    MayorPausa pausa;
    QElapsedTimer reloj;
    reloj.start();
    trabajo();
    EsperaTrabajos();
    const double mayor = pausa.Milisegundos();
    std::printf("%-44s %7.2f s   longest pause %6.0f ms\n", que, static_cast<double>(reloj.elapsed()) / 1000, mayor);
    std::fflush(stdout);
    Resume((QByteArray("Longest pause: ") + que).constData(), mayor, " ms", "50 ms");
}

/// A saved declaration and the windows over it.
class Ventanas {
  public:
    Ventanas() : m_taller({20'000, 50'000}) {
        Graba(*m_taller.base);
        m_taller.base->Ejecuta(u"INSERT INTO CONT VALUES (6,?,'COMERCIAL DEL VALLE S.A.C.','ANA',1)"_s,
                               {kClave.ruc.Texto()});
        m_proceso.baseDatos = Base::Abre(m_taller.base.Ruta());
        m_proceso.sysUser = u"ANA"_s;
        m_proceso.sysPath = m_taller.base.Carpeta() + u'/';
        m_proceso.rutaRPT = m_taller.base.Carpeta();
        m_detras.show();
        QApplication::processEvents(); // the letters are loaded by whoever shows the first text
    }

    void AbreDeclaracion() {
        const DeclaracionElegida elegida{.clave = kClave, .nombre = u"COMERCIAL DEL VALLE S.A.C."_s};
        TomaTablas(m_detras, m_proceso, elegida, [this, elegida](const TablasTomadas& tablas) {
            m_declaracion = std::make_unique<Frm518>(EntornoDeclaracion{m_proceso, m_avisos, m_barra}, tablas, elegida);
            m_declaracion->show();
        });
    }
    void Grabala() { m_declaracion->findChild<QPushButton*>(u"CmdGrabar"_s)->click(); }
    /// Up to the dialog of the page range, which is closed.
    void PreparaAnexo() {
        m_impresion = std::make_unique<frmImprimir>(m_proceso, Informes(), m_barra, false);
        m_impresion->show();
        m_impresion->findChild<QRadioButton*>(u"OptImp_1"_s)->click();
        QObject::connect(&m_cierre, &QTimer::timeout, &m_cierre, [] {
            if (QWidget* abierta = QApplication::activeModalWidget(); abierta && abierta->objectName() == u"frmImpxPag")
                abierta->close();
        });
        m_cierre.start(1);
        m_impresion->findChild<QPushButton*>(u"CmdImprimir_0"_s)->click();
    }
    void GuardaPdf() {
        m_cierre.stop();
        const QString archivo = QDir(m_proceso.rutaRPT).entryList({u"*.PRN"_s}, QDir::Files).value(0);
        GuardaReporteComoPdf(Informes(), {archivo, u"Anexo"_s, {}}, {}, m_detras);
    }

  private:
    EntornoInformes Informes() { return EntornoDeInformes(m_proceso, m_avisos, m_archivos); }

    TallerGuardado m_taller;
    RelojFijo m_reloj{QDateTime(QDate(2026, 11, 1), QTime(9, 0))};
    Proceso m_proceso{m_reloj, {Formulario0518()}, kNumFormulario};
    Callado m_avisos;
    UnArchivo m_archivos{m_taller.base.Carpeta() + u"/anexo.pdf"_s};
    BarradeEstadoQMD m_barra;
    QLabel m_detras{u"Declaraciones registradas"_s};
    QTimer m_cierre;
    std::unique_ptr<Frm518> m_declaracion;
    std::unique_ptr<frmImprimir> m_impresion;
};

} // namespace

/// How long a window doesn't answer while it works on 20,000 clients and 50,000 vouchers.
int main(int argc, char* argv[]) {
    try {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        const QApplication aplicacion(argc, argv);
        Ventanas ventanas;
        Informa("opening 50,000 vouchers", [&] { ventanas.AbreDeclaracion(); });
        Informa("saving 50,000 vouchers", [&] { ventanas.Grabala(); });
        Informa("building their annex", [&] { ventanas.PreparaAnexo(); });
        Informa("their annex as PDF", [&] { ventanas.GuardaPdf(); });
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
