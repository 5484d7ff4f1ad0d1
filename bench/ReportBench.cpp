#include "Measure.h"

#include "reports/PagePainter.h"
#include "reports/PdfFile.h"
#include "reports/ReportFixture.h"
#include "reports/RunReport.h"
#include "reports/SpoolFile.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

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

constexpr int kClientes = 20'000;
constexpr int kComprobantes = 50'000;
constexpr int kPagos = 100'000;

/// Several runs, the quickest of them: the machine is shared.
Medida MejorDe(int veces, const std::function<std::function<void()>()>& trabajo) {
    Medida mejor = Mide(trabajo);
    for (int i = 1; i < veces; ++i) {
        const Medida otra = Mide(trabajo);
        if (otra.procesador < mejor.procesador)
            mejor = otra;
    }
    return mejor;
}

QString NumeroCliente(int i) {
    return u"20"_s + QString::number((i * 7919LL) % 1'000'000'007).rightJustified(9, u'0');
}

QString NumeroComprobante(int i) {
    return QString::number(i).rightJustified(8, u'0');
}

/// A declaration of the size told, its rows in no order that would help the report.
void Llena(prueba::Taller& taller) {
    const auto cliente = [](int comprobante) { return NumeroCliente((comprobante * 3) % kClientes); };
    taller.Cabecera({{u"501"_s, QString::number(kClientes)}});
    taller.DeUnaVez([&] {
        for (int i = 0; i < kClientes; ++i)
            taller.Agrega(prueba::Cliente{6, NumeroCliente(i), u"DISTRIBUIDORA EL PUENTE N° %1 S.A.C."_s.arg(i)});
        for (int i = 0; i < kComprobantes; ++i)
            taller.Agrega(prueba::Comprobante{cliente(i), NumeroComprobante(i), {}, u"12345.67"_s, u"246.91"_s});
        for (int i = 0; i < kPagos; ++i) {
            const int comprobante = i % kComprobantes;
            taller.Agrega(prueba::Pago{cliente(comprobante), NumeroComprobante(comprobante), NumeroComprobante(i),
                                       u"01"_s, u"6172.83"_s});
        }
    });
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

void EscribeAnexo(prueba::Taller& taller, const QString& ruta) {
    Proceso proceso(taller.proceso.reloj);
    proceso.baseDatos = Base::Abre(taller.Ruta());
    proceso.rutaRPT = taller.proceso.rutaRPT;
    const auto datos = CargarCasillas(*proceso.baseDatos, taller.clave);
    ArchivoSpool spool(ruta);
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

void Linea(const char* que, const Medida& medida, double razon, const char* unidad) {
    std::printf("%-44s %7.2f s %7.2f s %9.2f %-11s %5.0f MB\n", que, medida.segundos, medida.procesador, razon, unidad,
                static_cast<double>(medida.memoriaKb) / 1024);
    std::fflush(stdout);
}

/// Ratios are of processor time, which other programs on the machine disturb less.
void Informa(int argc, char** argv) {
    prueba::Taller taller;
    Llena(taller);
    const QString spool = taller.Carpeta() + u"/anexo.PRN"_s;
    const QString pdf = taller.Carpeta() + u"/anexo.pdf"_s;
    const auto conDibujo = [&](const std::function<void()>& trabajo) {
        return [&argc, argv, trabajo]() -> std::function<void()> {
            return [aplicacion = std::make_shared<QGuiApplication>(argc, argv), trabajo] { trabajo(); };
        };
    };
    std::printf("%-44s %9s %9s %21s %8s\n", "", "wall", "processor", "", "peak");
    const Medida suelo = MejorDe(5, [&] { return [&] { LeeDesnudo(taller.Ruta().toUtf8()); }; });
    Linea("20,000 clients, 150,000 vouchers, bare read", suelo, 1, "");
    const Medida anexo = MejorDe(5, [&] { return [&] { EscribeAnexo(taller, spool); }; });
    Linea("the annex of them to spool", anexo, anexo.procesador / suelo.procesador, "x the read");
    Resume("Annex of 20,000 clients and 150,000 vouchers to spool", anexo.procesador / suelo.procesador,
           " x the bare read of the rows", "3");
    Resume("Its memory", static_cast<double>(anexo.memoriaKb) / 1024, " MB", "100 MB");
    const Medida vista = MejorDe(3, conDibujo([&] { AbreVista(spool); }));
    Linea("opening its preview", vista, InformeSpool::Abre(spool)->Paginas(), "pages");
    Resume("Opening its preview", vista.segundos, " s", "1 s");
    for (const int paginas : {100, 1000}) {
        const Medida impresa = MejorDe(2, conDibujo([&] { EscribePaginas(spool, pdf, paginas); }));
        Linea(paginas == 100 ? "PDF of 100 pages" : "PDF of 1,000 pages", impresa, paginas / impresa.procesador,
              "pages/s");
        if (paginas == 1000)
            Resume("PDF of 1,000 pages", paginas / impresa.procesador, " pages/s", "-");
    }
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    try {
        Informa(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
