#include "BareBase.h"
#include "Measure.h"

#include "app/FrmContAbrir.h"
#include "app/FrmContAbrirE.h"
#include "declaration/PagPercepcion.h"
#include "detail/FrmAgePer.h"
#include "family/Process.h"
#include "form518/Form0518.h"
#include "launcher/PagDeclarantes.h"
#include "launcher/PagEnviadas.h"
#include "launcher/PagInformes.h"
#include "launcher/PagRegistradas.h"
#include "launcher/Session.h"
#include "platform/Clock.h"
#include "support/TemporaryBase.h"
#include "widgets/Application.h"
#include "widgets/NoticeBoxes.h"
#include "widgets/StatusBar.h"

#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <stdexcept>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

constexpr int kFilasPorPaso = 250;
const QString kCliente = u"20500000000"_s;

/// The numbers from 1 to 100,000 as `i`.
constexpr const char* kCuenta = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<100000) ";

/// Every list's rows: clients, vouchers of the first of them, declarants, declarations of both kinds, reports.
void Llena(const QString& ruta) {
    medida::BaseDesnuda base(ruta);
    base.Pide("BEGIN");
    for (const char* sql :
         {"INSERT OR IGNORE INTO PARAM VALUES ('044','6','" // its short name and its length stand in their columns
          "REGISTRO UNICO DE CONTRIBUYENT RUC           11        ',6)",
          "INSERT INTO TMPF518PCAB SELECT 6,CAST(20499999999+i AS TEXT),'COMERCIAL '||i||' DEL VALLE S.A.C.',' ',' ',"
          "' ','1','1250.40','25.01',NULL FROM n",
          "INSERT INTO TMPF518PDET SELECT 6,'20500000000','0001',printf('%08d',i),'','1','0','9','05/10/2026',"
          "'500.20','10.00','2.00' FROM n",
          "INSERT INTO CONT SELECT 6,CAST(20600000000+i AS TEXT),'EMPRESA '||i,'JEFA',1 FROM n",
          "INSERT INTO CAB SELECT CAST(20600000000+i AS TEXT),6,'2026'||printf('%02d',1+i%12),'0518','05/10/2026',' ',"
          "' ','','100',i%2*9,'0','123456' FROM n",
          "INSERT INTO HCAB SELECT CAST(20600000000+i AS TEXT),6,'2026'||printf('%02d',1+i%12),'0518','05/10/2026',' ',"
          "' ','','100',1,'0','0','05/11/2026','12345678','1','123456' FROM n",
          "INSERT INTO SPOOL SELECT 'PER006',printf('%08d',i),'R'||i||'.PRN','2026-11-21 09:05:00','JEFA',6,"
          "'20600000001' FROM n"})
        base.Pide((QByteArray(QByteArrayView(sql).startsWith("INSERT INTO") ? kCuenta : "") + sql).constData());
    base.Pide("COMMIT");
}

/// Seconds of processor that a piece of work takes, which other programs on the machine disturb less than the wall's.
double Segundos(const std::function<void()>& trabajo) {
    const std::clock_t antes = std::clock();
    trabajo();
    return static_cast<double>(std::clock() - antes) / CLOCKS_PER_SEC;
}

/// The longest of the steps from the first row to the last, so far apart that each page of rows is read on the way.
double PasoMasLargo(QTableView& grilla) {
    QScrollBar& barra = *grilla.verticalScrollBar();
    double mayor = 0;
    while (barra.value() < barra.maximum()) {
        mayor = std::max(mayor, Segundos([&] {
                             barra.setValue(barra.value() + kFilasPorPaso);
                             grilla.viewport()->repaint();
                         }));
    }
    return mayor;
}

/// From the last row to others at once, as with the keys.
double SaltoMasLargo(QTableView& grilla) {
    double mayor = 0;
    for (const int fila : {0, 77'777, 33'333, grilla.model()->rowCount() - 1}) {
        mayor = std::max(mayor, Segundos([&] {
                             grilla.setCurrentIndex(grilla.model()->index(fila, 0));
                             grilla.viewport()->repaint();
                         }));
    }
    return mayor;
}

/// Opens a list until it has been painted, and goes through it.
void Mide(const QString& cual, const std::function<std::unique_ptr<QWidget>()>& abre) {
    std::unique_ptr<QWidget> ventana;
    const double apertura = Segundos([&] {
        ventana = abre();
        ventana->resize(900, 560);
        ventana->show();
        QCoreApplication::processEvents();
    });
    auto& grilla = *ventana->findChild<QTableView*>();
    if (grilla.model()->rowCount() != 100'000)
        throw std::runtime_error("the list is not whole");
    const double paso = PasoMasLargo(grilla);
    const double salto = SaltoMasLargo(grilla);
    std::printf("%-28s %8.3f %12.4f %12.4f\n", qUtf8Printable(cual), apertura, paso, salto);
    medida::Resume(qUtf8Printable(u"Opening 100,000 rows: "_s + cual), apertura, " s", "0.3 s");
    medida::Resume("The longest step while it is scrolled", paso * 1000, " ms", "50 ms");
    medida::Resume("The longest jump", salto * 1000, " ms", "50 ms");
}

void MideModulo(const QString& ruta, Avisos& avisos, const Reloj& reloj) {
    Proceso proceso(reloj, {Formulario0518()}, kNumFormulario);
    proceso.baseDatos = Base::Abre(ruta);
    proceso.baseDatos->Ejecuta(u"INSERT INTO CLAVES VALUES ('JEFA','0')"_s);
    proceso.sysUser = u"JEFA"_s;
    BarradeEstadoQMD barra;
    const Dialogos dialogos;
    const Entorno entorno{proceso, avisos, barra, dialogos};
    Mide(u"clients"_s, [&] {
        auto pagina = std::make_unique<PagPercepcion>();
        pagina->Refresca(*proceso.baseDatos);
        return pagina;
    });
    Mide(u"vouchers of a client"_s, [&] {
        const EntornoDetalle detalle{*proceso.baseDatos, avisos,          reloj, Ruc(u"20990518018"),
                                     Periodo(2026, 10),  Periodo(2011, 3)};
        return std::make_unique<FrmAgePer>(detalle, ModoDetalle::Modificar,
                                           FilaCliente{CodigoDocumento(6), kCliente, u"COMERCIAL 1"_s, {}, {}, {}});
    });
    Mide(u"declarations to modify"_s,
         [&] { return std::make_unique<FrmContAbrir>(entorno, OpcionDeLista::Modificar); });
    Mide(u"sent declarations"_s, [&] { return std::make_unique<FrmContAbrirE>(entorno, OpcionDeLista::Modificar); });
}

void MideConsola(const prueba::BaseTemporal& base, Avisos& avisos, const Reloj& reloj) {
    Sesion sesion({reloj, base.Carpeta() + u"/XA000.INI"_s, base.Carpeta(), u"JEFA"_s, {Formulario0518()}});
    const EntornoPagina entorno{sesion, avisos};
    const auto mide = [&](const QString& cual, const auto& hace) {
        Mide(cual, [&] {
            auto pagina = hace();
            pagina->Carga(*base);
            return pagina;
        });
    };
    mide(u"declarants (launcher)"_s, [&] { return std::make_unique<PagDeclarantes>(entorno, nullptr); });
    mide(u"registered (launcher)"_s, [&] { return std::make_unique<PagRegistradas>(entorno, VistasDeCambios{}); });
    mide(u"sent (launcher)"_s, [&] { return std::make_unique<PagEnviadas>(entorno, nullptr); });
    mide(u"reports (launcher)"_s, [&] { return std::make_unique<PagInformes>(entorno, VistaDeInforme{}, nullptr); });
}

} // namespace

/// Every list of both programs over 100,000 rows: until it shows, and while it is gone through.
int main(int argc, char* argv[]) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    AvisosEnPantalla avisos;
    const Aplicacion aplicacion(argc, argv, avisos);
    const RelojFijo reloj(QDateTime(QDate(2026, 11, 1), QTime(9, 0)));
    try {
        const prueba::BaseTemporal base;
        Llena(base.Ruta());
        std::printf("%-28s %8s %12s %12s\n", "100,000 rows", "open s", "step s", "jump s");
        MideModulo(base.Ruta(), avisos, reloj);
        MideConsola(base, avisos, reloj);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
