#include "Measure.h"

#include "form518/Form0518.h"
#include "printouts/PrintOutFixture.h"
#include "printouts/RunReport.h"
#include "reports/PagePainter.h"
#include "reports/PdfFile.h"
#include "reports/SpoolFile.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QLocale>
#include <QPainter>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

using namespace xa518;
using namespace xa518::medida;
using namespace Qt::StringLiterals;

namespace {

/// So many times 20,000 clients, 50,000 vouchers and 100,000 payment vouchers.
struct Tamano {
    int veces;

    [[nodiscard]] int Clientes() const { return 20'000 * veces; }
    [[nodiscard]] int Comprobantes() const { return 50'000 * veces; }
    [[nodiscard]] int Pagos() const { return 100'000 * veces; }
};

/// A declaration of that size in a base of its own, and what is made of it. It is filled by another process: what that
/// one holds isn't counted as memory of those that are measured.
class Muestra {
  public:
    explicit Muestra(Tamano tamano);

    [[nodiscard]] QString Base() const { return m_carpeta.filePath(u"XA000.DB"_s); }
    [[nodiscard]] QString Spool() const { return m_carpeta.filePath(u"anexo.PRN"_s); }
    [[nodiscard]] QString Pdf() const { return m_carpeta.filePath(u"anexo.pdf"_s); }

  private:
    QTemporaryDir m_carpeta;
};

const ClaveDeclaracion kClave{.ruc = Ruc(u"20990518018"), .periodo = Periodo(2026, 1), .formulario = kNumFormulario};

Medida MejorDe(int veces, const std::function<std::function<void()>()>& trabajo) {
    return MideDeATurnos(veces, {[&] { return Mide(trabajo); }}).front();
}

QString NumeroCliente(int i) {
    return u"20"_s + QString::number((i * 7919LL) % 1'000'000'007).rightJustified(9, u'0');
}

QString NumeroComprobante(int i) {
    return QString::number(i).rightJustified(8, u'0');
}

/// The rows stand in no order that would help the report.
void Llena(prueba::Taller& taller, Tamano tamano) {
    const auto cliente = [&](int comprobante) { return NumeroCliente((comprobante * 3) % tamano.Clientes()); };
    taller.Cabecera({{u"501"_s, QString::number(tamano.Clientes())}});
    taller.DeUnaVez([&] {
        for (int i = 0; i < tamano.Clientes(); ++i)
            taller.Cliente(NumeroCliente(i), u"DISTRIBUIDORA EL PUENTE N° %1 S.A.C."_s.arg(i));
        for (int i = 0; i < tamano.Comprobantes(); ++i)
            taller.Comprobante(cliente(i), NumeroComprobante(i),
                               {{u"mto_base_p"_s, u"12345.67"_s}, {u"mto_imp_p"_s, u"246.91"_s}});
        for (int i = 0; i < tamano.Pagos(); ++i) {
            const int comprobante = i % tamano.Comprobantes();
            taller.Pago(cliente(comprobante), NumeroComprobante(comprobante), NumeroComprobante(i),
                        {{u"mto_detcp"_s, u"6172.83"_s}});
        }
    });
}

Muestra::Muestra(Tamano tamano) {
    const auto llenado = Mide([&] {
        return [&] {
            prueba::Taller taller;
            taller.clave = kClave;
            Llena(taller, tamano);
            if (!QFile::copy(taller.base.Ruta(), Base()))
                throw std::runtime_error("copy");
        };
    });
    std::printf("(filled in %.0f s)\n", llenado.segundos);
}

/// The floor: every column of the same rows, read as text through the engine's own interface, in no order at all.
void LeeDesnudo(const QByteArray& ruta) {
    sqlite3* conexion = nullptr;
    if (sqlite3_open_v2(ruta.constData(), &conexion, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
        throw std::runtime_error("open");
    qint64 bytes = 0;
    for (const char* tabla : {"F518PCAB", "F518PDET", "F518PDETVC", "F518PDETCP"}) {
        const std::string sql = std::string("SELECT * FROM ") + tabla +
                                " WHERE tip_doc_d=6 AND doc_id_d='20990518018' "
                                "AND periodo='202601' AND formulario='0518'";
        sqlite3_stmt* sentencia = nullptr;
        if (sqlite3_prepare_v2(conexion, sql.c_str(), -1, &sentencia, nullptr) != SQLITE_OK)
            throw std::runtime_error("prepare");
        const int columnas = sqlite3_column_count(sentencia);
        while (sqlite3_step(sentencia) == SQLITE_ROW) {
            for (int i = 0; i < columnas; ++i) {
                sqlite3_column_text(sentencia, i);
                bytes += sqlite3_column_bytes(sentencia, i);
            }
        }
        sqlite3_finalize(sentencia);
    }
    sqlite3_close(conexion);
    if (bytes == 0)
        throw std::runtime_error("nothing read");
}

void EscribeAnexo(const Muestra& muestra) {
    const RelojSistema reloj;
    Proceso proceso(reloj, {Formulario0518()}, kNumFormulario);
    proceso.baseDatos = Base::Abre(muestra.Base());
    const auto datos = CargarCasillas(*proceso.baseDatos, kClave);
    ArchivoSpool spool(muestra.Spool());
    EjecutaReporte(proceso, PedidoDeclaracion{*datos, true}, spool);
}

/// What opening the preview takes: the report, and a picture of its first page.
int AbreVista(const QString& ruta) {
    const auto informe = InformeSpool::Abre(ruta);
    QImage hoja(TamanoHoja(informe->Cabecera().apaisado) / 15, QImage::Format_RGB32);
    hoja.fill(ColorDe(informe->Cabecera().color, Qt::white));
    QPainter pintor(&hoja);
    PintaPagina(pintor, *informe, 0, hoja.width());
    return informe->Paginas();
}

void EscribePaginas(const QString& spool, const QString& pdf, int paginas) {
    EscribePdf({spool}, pdf, {u"Anexo"_s, u"Banco de pruebas"_s, QDateTime::currentDateTime()}, {true, 1, paginas});
}

void Linea(const QByteArray& que, const Medida& medida, double razon, const char* unidad) {
    std::printf("%-48s %7.2f s %7.2f s %9.2f %-11s %5.0f MB\n", que.constData(), medida.segundos, medida.procesador,
                razon, unidad, static_cast<double>(medida.memoriaKb) / 1024);
    std::fflush(stdout);
}

void MideAnexo(const Muestra& muestra, Tamano tamano) {
    const QLocale ingles(QLocale::English);
    const QByteArray filas = ingles.toString(tamano.Clientes()).toLatin1() + " clients and " +
                             ingles.toString(tamano.Comprobantes() + tamano.Pagos()).toLatin1() + " vouchers";
    const auto lee = [&] { return Mide([&] { return [&] { LeeDesnudo(muestra.Base().toUtf8()); }; }); };
    const auto escribe = [&] {
        return Mide([&] {
            QFile::remove(muestra.Spool()); // every report has a file of its own
            return [&] { EscribeAnexo(muestra); };
        });
    };
    const auto medidas = MideDeATurnos(7, {lee, escribe});
    const Medida &suelo = medidas[0], &anexo = medidas[1];
    Linea(filas + ", bare read", suelo, 1, "");
    Linea("the annex of them to spool", anexo, anexo.procesador / suelo.procesador, "x the read");
    Resume(("Annex of " + filas + " to spool").constData(), anexo.procesador / suelo.procesador,
           " x the bare read of the rows", "2");
    Resume("Its memory", static_cast<double>(anexo.memoriaKb) / 1024, " MB", "100 MB");
}

/// A piece of work that paints, with what it takes to paint.
std::function<std::function<void()>()> ConDibujo(const std::function<void()>& trabajo) {
    return [trabajo]() -> std::function<void()> {
        static int argc = 1;
        static char nombre[] = "report_bench";
        static char* argv[] = {nombre, nullptr};
        return [aplicacion = std::make_shared<QGuiApplication>(argc, argv), trabajo] { trabajo(); };
    };
}

void MideVista(const Muestra& muestra) {
    const Medida vista = MejorDe(3, ConDibujo([&] { AbreVista(muestra.Spool()); }));
    Linea("opening its preview", vista, InformeSpool::Abre(muestra.Spool())->Paginas(), "pages");
    Resume("Opening its preview", vista.segundos, " s", "1 s");
}

void MidePdf(const Muestra& muestra) {
    for (const int paginas : {100, 1000}) {
        const Medida impresa = MejorDe(5, ConDibujo([&] { EscribePaginas(muestra.Spool(), muestra.Pdf(), paginas); }));
        Linea(paginas == 100 ? "PDF of 100 pages" : "PDF of 1,000 pages", impresa, paginas / impresa.procesador,
              "pages/s");
        if (paginas == 1000) {
            Resume("PDF of 1,000 pages", paginas / impresa.procesador, " pages/s", "1,000 pages/s");
            Resume("A page of it", static_cast<double>(QFileInfo(muestra.Pdf()).size()) / paginas / 1024, " KB",
                   "1.8 KB");
        }
    }
}

/// Ratios are of processor time, which other programs on the machine disturb less.
void Informa() {
    std::printf("%-48s %9s %9s %21s %8s\n", "", "wall", "processor", "", "peak");
    for (const Tamano tamano : {Tamano{1}, Tamano{4}}) {
        const Muestra muestra(tamano);
        MideAnexo(muestra, tamano);
        MideVista(muestra);
        if (tamano.veces == 1)
            MidePdf(muestra);
    }
}

} // namespace

int main() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    try {
        Informa();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
