#include "Await.h"
#include "ImportWorkshop.h"
#include "Measure.h"
#include "Pause.h"

#include "import/ErrorSheet.h"
#include "import/Formats.h"
#include "import/FrmCorreccion.h"
#include "import/ImportFile.h"
#include "import/LineReader.h"
#include "import/frmTransferencia.h"
#include "platform/FileDialogs.h"
#include "platform/Notices.h"

#include <QApplication>
#include <QFile>
#include <QPushButton>
#include <QTemporaryFile>

#include <cstdio>
#include <functional>
#include <memory>

using namespace xa518;
using namespace xa518::medida;
using namespace Qt::StringLiterals;

namespace {

class SinNadie final : public ObservadorImportacion {
    bool Sigue(const AvanceImportacion& /*avance*/) override { return true; }
};

/// Takes what is told and answers no.
class Callado final : public Avisos {
    void HazMuestra(const Mensaje& mensaje) override { Exige(mensaje.icono != Icono::Critico, "the import failed"); }
    Respuesta HazPregunta(const Mensaje& /*mensaje*/, Respuesta /*preseleccionada*/) override { return Respuesta::No; }
    Respuesta HazPreguntaConOtra(const Mensaje& /*mensaje*/, const QString& /*otra*/) override { return Respuesta::No; }
};

/// Nobody is asked for a file.
class SinArchivos final : public DialogosDeArchivo {
    QString PideArchivo(const ArchivoPedido& /*pedido*/) override { return {}; }
    QString PideCarpeta(const QString& /*titulo*/, const QString& /*desde*/) override { return {}; }
};

struct Trabajo {
    int lineas = 0;
    bool estropeado = false;
};

std::shared_ptr<Taller> HazTaller(const Trabajo& trabajo) {
    return std::make_shared<Taller>(Tamanio{trabajo.lineas, trabajo.lineas / 5, trabajo.lineas / 2},
                                    !trabajo.estropeado);
}

void ExigeFilas(Proceso& proceso, const Trabajo& trabajo) {
    Registros filas = proceso.baseDatos->Lee(u"SELECT count(*) FROM TMPF518PDETCP"_s);
    Exige(filas.Siguiente() && filas.Entero(0) == (trabajo.estropeado ? 0 : trabajo.lineas), "rows are missing");
}

/// With its sheet of errors, as the window always makes it.
Medida MideLote(const Trabajo& trabajo) {
    return Mide([&trabajo] {
        const auto taller = HazTaller(trabajo);
        return [taller, &trabajo] {
            const auto proceso = taller->Abre();
            SinNadie nadie;
            QTemporaryFile errores;
            Exige(errores.open(), "no sheet of errors");
            PlanillaErrores planilla(errores);
            (void)Transferencia(*proceso, Taller::Clave(), FormatoPercepciones(), taller->Carpeta(), {false, &planilla})
                .Corre(nadie);
            ExigeFilas(*proceso, trabajo);
        };
    });
}

/// What any look at the lines has to do.
Medida MideLectura(const Trabajo& trabajo) {
    return Mide([&trabajo] {
        const auto taller = HazTaller(trabajo);
        return [taller, &trabajo] {
            QFile archivo(BuscaArchivo(taller->Carpeta(), NombreDeArchivo(Taller::Clave(), FormatoPercepciones())));
            Exige(archivo.open(QIODevice::ReadOnly | QIODevice::Unbuffered), "no file");
            LectorLineas lector(archivo);
            int lineas = 0;
            while (lector.Siguiente() == LectorLineas::Lectura::Linea)
                ++lineas;
            Exige(lineas == trabajo.lineas, "lines are missing");
        };
    });
}

std::shared_ptr<LineasRechazadas> Rechaza(Proceso& proceso, const Taller& taller) {
    SinNadie nadie;
    auto rechazadas = std::make_shared<LineasRechazadas>();
    const OpcionesImportacion opciones{.prueba = true, .rechazadas = rechazadas.get()};
    (void)Transferencia(proceso, Taller::Clave(), FormatoPercepciones(), taller.Carpeta(), opciones).Corre(nadie);
    rechazadas->Cierra();
    return rechazadas;
}

/// From the press of the button to the painted lines.
Medida MideApertura(const Trabajo& trabajo) {
    return Mide([&trabajo] {
        static int argc = 1;
        static char nombre[] = "import_window_bench";
        static char* argv[] = {nombre, nullptr};
        const auto aplicacion = std::make_shared<QApplication>(argc, argv);
        const auto taller = HazTaller(trabajo);
        const std::shared_ptr<Proceso> proceso = taller->Abre();
        const auto rechazadas = Rechaza(*proceso, *taller);
        Exige(rechazadas->Cuantas() == trabajo.lineas, "lines are missing");
        return [aplicacion, taller, proceso, rechazadas] {
            Callado avisos;
            SinArchivos archivos;
            FrmCorreccion forma({*proceso, avisos, archivos, Taller::Clave(), taller->Carpeta(), {}},
                                std::make_shared<Correccion>(rechazadas, FormatoPercepciones()));
            forma.show();
            QApplication::processEvents();
            (void)forma.grab();
        };
    });
}

void InformaApertura(const Trabajo& trabajo) {
    const auto medidas =
        MideDeATurnos(5, {[&] { return MideLectura(trabajo); }, [&] { return MideApertura(trabajo); }});
    const double lectura = medidas[0].procesador, apertura = medidas[1].procesador;
    std::printf("Opening %d refused lines: %.3f s of processor, %.3f s to read them\n", trabajo.lineas, apertura,
                lectura);
    Resume("Opening 100,000 refused lines", medidas[1].segundos, " s", "1 s");
    Resume("The same to the reading of their file", apertura / lectura, " x the floor", "30");
}

/// In which the dialog finds the folder.
ArchivoPerfil HazPerfil(const Taller& taller) {
    ArchivoPerfil perfil(taller.Carpeta() + u"/XA000.INI"_s);
    perfil.Escribe(u"Importar", u"Carpeta", taller.Carpeta());
    return perfil;
}

/// Shows the dialog, presses its button and waits.
void Transfiere(const Taller& taller, const ArchivoPerfil& perfil, const Trabajo& trabajo,
                const std::function<void()>& espera) {
    const auto proceso = taller.Abre();
    Callado avisos;
    SinArchivos archivos;
    frmTransferencia forma(*proceso, avisos, Taller::Clave(), {.perfil = perfil, .archivos = archivos});
    forma.show();
    QApplication::processEvents();
    forma.findChild<QPushButton*>(u"cmdTransferir"_s)->click();
    espera();
    ExigeFilas(*proceso, trabajo);
}

/// For how long at most the dialog doesn't answer.
void InformaPausa(const Trabajo& trabajo) {
    static int argc = 1;
    static char nombre[] = "import_window_bench";
    static char* argv[] = {nombre, nullptr};
    const QApplication aplicacion(argc, argv);
    const auto taller = HazTaller(trabajo);
    Transfiere(*taller, HazPerfil(*taller), trabajo, [] {
        MayorPausa pausa;
        EsperaTrabajos();
        Resume("Longest pause: importing 100,000 lines", pausa.Milisegundos(), " ms", "50 ms");
    });
}

/// The dialog shown and its button pressed, with the window system's own start outside of the measure.
Medida MideVentana(const Trabajo& trabajo) {
    return Mide([&trabajo] {
        static int argc = 1;
        static char nombre[] = "import_window_bench";
        static char* argv[] = {nombre, nullptr};
        const auto aplicacion = std::make_shared<QApplication>(argc, argv);
        const auto taller = HazTaller(trabajo);
        const ArchivoPerfil perfil = HazPerfil(*taller);
        return
            [aplicacion, taller, perfil, &trabajo] { Transfiere(*taller, perfil, trabajo, [] { EsperaTrabajos(); }); };
    });
}

constexpr int kVeces = 7;

struct Comparada {
    double razon = 0; ///< of the window to the batch tool
    double lote = 0;  ///< seconds
};

Comparada Informa(const char* nombre, const Trabajo& trabajo) {
    const auto medidas =
        MideDeATurnos(kVeces, {[&] { return MideLote(trabajo); }, [&] { return MideVentana(trabajo); }});
    const Medida &lote = medidas[0], &ventana = medidas[1];
    std::printf("%-16s %9d %9.2f %9.2f %8.2fx %9.2f %9.2f %8.2fx %9.1f %9.1f\n", nombre, trabajo.lineas, lote.segundos,
                ventana.segundos, ventana.segundos / lote.segundos, lote.procesador, ventana.procesador,
                ventana.procesador / lote.procesador, static_cast<double>(lote.memoriaKb) / 1024,
                static_cast<double>(ventana.memoriaKb) / 1024);
    std::fflush(stdout);
    return {ventana.segundos / lote.segundos, lote.segundos};
}

} // namespace

/// Without QT_QPA_PLATFORM the window is painted, but on no screen.
int main() {
    try {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
            qputenv("QT_QPA_PLATFORM", "offscreen");
        std::printf("                     lines   batch s  window s    ratio batch cpu win. cpu    ratio  batch MB "
                    "window MB\n");
        Informa("all pass", {20'000, false});
        Resume("Import of 100,000 lines in the window", Informa("all pass", {100'000, false}).razon,
               " x the batch tool", "1.15");
        InformaPausa({100'000, false});
        Informa("all refused", {20'000, true});
        Resume("100,000 lines, all refused, logs closed per line", Informa("all refused", {100'000, true}).lote, " s",
               "1.5 s");
        InformaApertura({100'000, true});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
