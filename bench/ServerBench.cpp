#include "ImportWorkshop.h"
#include "Measure.h"
#include "SavedSample.h"
#include "SlowWire.h"

#include "app/DeclarationLists.h"
#include "data/LongList.h"
#include "import/Formats.h"
#include "import/ImportRun.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstdio>
#include <memory>

using namespace xa518;
using namespace xa518::medida;
using namespace Qt::StringLiterals;

namespace {

constexpr Tamanio kMes{100'000, 20'000, 50'000};
constexpr int kDeclaraciones = 100'000;
constexpr int kFilasDePagina = 500; // as a grid reads them
constexpr int kVeces = 2;
constexpr const char* kServidor = "XA518_TEST_SERVER"; // where the bases of the workshops lie

class SinNadie final : public ObservadorImportacion {
    bool Sigue(const AvanceImportacion& /*avance*/) override { return true; }
};

void Importa(Proceso& proceso, const Taller& taller) {
    SinNadie nadie;
    const ResultadoImportacion resultado =
        Transferencia(proceso, Taller::Clave(), FormatoPercepciones(), taller.Carpeta()).Corre(nadie);
    Exige(resultado.fin == FinImportacion::Completa, "the import did not end well");
    Exige(resultado.transferidos == kMes.lineas && resultado.rechazados == 0, "the import refused lines");
}

/// The clients' types, which the save looks for.
void PonTipos(Base& base) {
    for (const QString& tipo : {u"1"_s, u"6"_s})
        base.Ejecuta(u"INSERT INTO PARAM VALUES ('044',?,?,0)"_s,
                     {tipo, prueba::Funcion({{32, u"DOC"_s}, {46, u"11"_s}})});
}

void LlenaSelector(Proceso& proceso, const Taller& /*taller*/) {
    for (const QString& sql :
         {u"INSERT INTO CLAVES VALUES ('JEFA', '0')"_s,
          u"INSERT INTO CONT SELECT 6, (20600000000 + i)::text, 'EMPRESA ' || i, 'JEFA', 1"
          " FROM generate_series(1, %1) AS i"_s.arg(kDeclaraciones),
          u"INSERT INTO CAB SELECT (20600000000 + i)::text, 6, '202609', '0518', '05/10/2026', ' ', ' ', '', '100', 0,"
          " '0', '123456' FROM generate_series(1, %1) AS i"_s.arg(kDeclaraciones)})
        proceso.baseDatos->Ejecuta(sql);
}

/// Opens the picker of the registered declarations, and looks at so many of its pages.
void MiraSelector(Proceso& proceso, int paginas) {
    proceso.sysUser = u"JEFA"_s;
    const ListaLarga lista(*proceso.baseDatos, SqlRegistradas(proceso, OrdenRegistradas::Periodo));
    Exige(lista.Filas() == kDeclaraciones, "the list is not whole");
    for (int pagina = 0; pagina < paginas; ++pagina)
        Exige(lista.Lee(pagina * kFilasDePagina, kFilasDePagina).size() == kFilasDePagina, "a page is not whole");
}

/// What is done to a month: before it is timed, over the quick way; and timed.
struct Labor {
    std::function<void(Proceso&, const Taller&)> antes;
    std::function<void(Proceso&, const Taller&)> trabajo;
};

void Prepara(Proceso& proceso, const Taller& taller) {
    PonTipos(*proceso.baseDatos);
    Importa(proceso, taller);
}

const Labor kImportacion{[](Proceso&, const Taller&) {}, Importa};
const Labor kGrabacion{Prepara, [](Proceso& proceso, const Taller&) { Graba(*proceso.baseDatos); }};
const Labor kSelector{LlenaSelector, [](Proceso& proceso, const Taller&) { MiraSelector(proceso, 1); }};
const Labor kSelectorEntero{
    LlenaSelector, [](Proceso& proceso, const Taller&) { MiraSelector(proceso, kDeclaraciones / kFilasDePagina); }};

/// Where the base lies while a labour is made ready, and while it is timed; a file where nothing is named.
struct Camino {
    QByteArray preparado;
    QByteArray medido;
    const LineaLenta* linea = nullptr;
};

void Pasa(const QByteArray& servidor) {
    if (!servidor.isEmpty())
        qputenv(kServidor, servidor);
    else
        qunsetenv(kServidor);
}

Medida MideLabor(const Labor& labor, const Camino& camino) {
    return Mide([&] {
        Pasa(camino.preparado);
        const auto taller = std::make_shared<Taller>(kMes);
        labor.antes(*taller->Abre(), *taller);
        Pasa(camino.medido);
        return [taller, trabajo = labor.trabajo] { trabajo(*taller->Abre(), *taller); };
    });
}

/// Round trips of a labour alone.
double VueltasDe(const Labor& labor, const Camino& camino) {
    const long antes = camino.linea->Vueltas();
    (void)MideLabor({.antes = labor.antes, .trabajo = [](Proceso&, const Taller&) {}}, camino);
    const long sinElla = camino.linea->Vueltas() - antes;
    (void)MideLabor(labor, camino);
    return static_cast<double>(camino.linea->Vueltas() - antes - 2 * sinElla);
}

void Compara(const char* que, const Labor& labor, const std::vector<Camino>& caminos) {
    std::vector<double> segundos;
    for (int vez = 0; vez < kVeces; ++vez) {
        for (size_t i = 0; i < caminos.size(); ++i) {
            const double suyos = MideLabor(labor, caminos[i]).segundos;
            if (vez == 0)
                segundos.push_back(suyos);
            segundos[i] = std::min(segundos[i], suyos);
        }
    }
    const double vueltas = VueltasDe(labor, caminos[2]) * 1000 / kMes.lineas;
    std::printf("%-8s %8.2f %8.2f %8.2f %8.2fx %8.2fx %8.2f\n", que, segundos[0], segundos[1], segundos[2],
                segundos[1] / segundos[0], segundos[2] / segundos[0], vueltas);
    const std::string nombre = std::string(que) + " of 100,000 lines ";
    Resume((nombre + "on a local server").c_str(), segundos[1] / segundos[0], " x the file", "2");
    Resume((nombre + "with 2 ms on each round trip").c_str(), segundos[2] / segundos[0], " x the file", "3");
    Resume((nombre + "over the wire").c_str(), vueltas, " round trips per 1,000", "5");
}

/// The same connection by another folder of sockets.
QByteArray PorLaLinea(QByteArray servidor, const LineaLenta& linea) {
    return QString::fromUtf8(servidor)
        .replace(QRegularExpression(u"host=\\S+"_s), u"host="_s + QString::fromStdString(linea.Carpeta()))
        .toUtf8();
}

QString CarpetaDe(const QByteArray& servidor) {
    return QRegularExpression(u"host=(\\S+)"_s).match(QString::fromUtf8(servidor)).captured(1);
}

} // namespace

/// A month on a server beside the same on a file. The server is the one that XA518_TEST_SERVER names, by the folder of
/// its socket; it has to keep what it confirms, as the file does.
int main() {
    const QByteArray servidor = qgetenv(kServidor);
    try {
        Exige(!servidor.isEmpty(), "XA518_TEST_SERVER names no server");
        const LineaLenta linea(CarpetaDe(servidor).toStdString(), std::chrono::milliseconds(2));
        const std::vector<Camino> caminos{{}, {servidor, servidor}, {servidor, PorLaLinea(servidor, linea), &linea}};
        std::printf("           file s  local s  +2 ms s    local    +2 ms   trips per 1,000 lines\n");
        Compara("Import", kImportacion, caminos);
        Compara("Save", kGrabacion, caminos);
        const double abrir = VueltasDe(kSelector, caminos[2]);
        const double paginas = kDeclaraciones / kFilasDePagina - 1;
        Resume("Opening a picker of 100,000 rows over the wire", abrir, " round trips", "15");
        Resume("Scrolling through it", (VueltasDe(kSelectorEntero, caminos[2]) - abrir) / paginas,
               " round trips a page of 500", "2");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
