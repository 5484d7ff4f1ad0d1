#include "BareBase.h"
#include "ImportWorkshop.h"
#include "Measure.h"

#include "form518/RunUndo.h"
#include "import/Formats.h"
#include "import/ImportRun.h"
#include "values/Progress.h"

#include <cstdio>
#include <memory>
#include <string_view>

using namespace xa518;
using namespace xa518::medida;
using namespace Qt::StringLiterals;

namespace {

class SinNadie final : public ObservadorImportacion {
    bool Sigue(const AvanceImportacion& /*avance*/) override { return true; }
};

void Importa(Proceso& proceso, const Taller& taller, const Tamanio& tamanio, const OpcionesImportacion& opciones = {}) {
    SinNadie nadie;
    const ResultadoImportacion resultado =
        Transferencia(proceso, Taller::Clave(), FormatoPercepciones(), taller.Carpeta(), opciones).Corre(nadie);
    Exige(resultado.fin == FinImportacion::Completa, "the import did not end well");
    Exige(resultado.transferidos == tamanio.lineas && resultado.rechazados == 0, "the import refused lines");
}

/// The same look-ups and inserts through the engine's own interface, with nothing read and nothing checked.
class Suelo {
  public:
    explicit Suelo(const QString& ruta) : m_base(ruta) {
        m_cliente = m_base.Prepara("SELECT count(*) FROM TMPF518PCAB WHERE tip_doc_per=? AND num_doc_per=?");
        m_comprobante =
            m_base.Prepara("SELECT fec_emision_cp, mto_base_p FROM TMPF518PDET WHERE tip_doc_per=? AND num_doc_per=? "
                           "AND num_serie_cp=? AND num_cp=? AND tip_cp=''");
        m_altaCliente = m_base.Prepara("INSERT INTO TMPF518PCAB (tip_doc_per, num_doc_per, des_razon, des_apellido_p, "
                                       "des_apellido_m, des_nombres) VALUES (?,?,?,?,?,?)");
        m_altaComprobante = m_base.Prepara(
            "INSERT INTO TMPF518PDET (tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp, cp_fact, lista_clie, "
            "med_pago, fec_emision_cp, mto_base_p, mto_imp_p, por_tasa_p) VALUES (?,?,?,?,?,?,?,?,?,?,?,?)");
        m_altaPago = m_base.Prepara("INSERT INTO TMPF518PDETCP VALUES (?,?,?,?,?,?,?,?,?)");
    }

    void Corre(const std::vector<LineaMuestra>& lineas) {
        m_base.Pide("BEGIN IMMEDIATE");
        for (const LineaMuestra& linea : lineas)
            Escribe(linea);
        m_base.Pide("COMMIT");
    }

  private:
    using Sentencia = BaseDesnuda::Sentencia;

    /// Runs a statement over a client's type and the given texts; tells whether the first row, if any, counts as found.
    bool Pasa(const Sentencia& sentencia, int tipo, std::initializer_list<std::string_view> textos) {
        int lugar = 1;
        sqlite3_bind_int(sentencia.get(), lugar++, tipo);
        for (const std::string_view texto : textos)
            sqlite3_bind_text(sentencia.get(), lugar++, texto.data(), static_cast<int>(texto.size()), SQLITE_STATIC);
        const int paso = sqlite3_step(sentencia.get());
        m_base.Exige(paso == SQLITE_ROW || paso == SQLITE_DONE);
        const bool hallada = paso == SQLITE_ROW && sqlite3_column_text(sentencia.get(), 0)[0] != '0';
        sqlite3_reset(sentencia.get());
        return hallada;
    }

    void Escribe(const LineaMuestra& l) {
        const int tipo = l.empresa ? 6 : 1;
        if (!Pasa(m_cliente, tipo, {l.documento})) {
            if (l.empresa)
                Pasa(m_altaCliente, tipo, {l.documento, "COMERCIAL DEL VALLE Y HERMANOS S.A.C.", " ", " ", " "});
            else
                Pasa(m_altaCliente, tipo, {l.documento, "MARIA ELENA ROJAS QUISPE", "QUISPE", "ROJAS", "MARIA ELENA"});
        }
        if (!Pasa(m_comprobante, tipo, {l.documento, "0001", l.comprobante}))
            Pasa(m_altaComprobante, tipo,
                 {l.documento, "0001", l.comprobante, "", "1", "1", "0", "15/10/2026", l.monto, l.percepcion, "2.00"});
        Pasa(m_altaPago, tipo, {l.documento, "0001", l.comprobante, "01", "F001", l.pago, "10/10/2026", l.monto});
    }

    BaseDesnuda m_base;
    Sentencia m_cliente;
    Sentencia m_comprobante;
    Sentencia m_altaCliente;
    Sentencia m_altaComprobante;
    Sentencia m_altaPago;
};

Medida MideSuelo(const Tamanio& tamanio) {
    return Mide([&] {
        const auto base = std::make_shared<prueba::BaseTemporal>();
        const auto lineas = std::make_shared<std::vector<LineaMuestra>>();
        const Muestra muestra(tamanio);
        for (int i = 0; i < tamanio.lineas; ++i)
            lineas->push_back(muestra.Linea(i));
        return [base, lineas] { Suelo(base->Ruta()).Corre(*lineas); };
    });
}

Medida MideImportacion(const Tamanio& tamanio) {
    return Mide([&] {
        const auto taller = std::make_shared<Taller>(tamanio);
        return [taller, tamanio] { Importa(*taller->Abre(), *taller, tamanio); };
    });
}

struct Comparada {
    Medida importacion;
    double razon = 0; ///< to the floor, by the wall's clock
};

Comparada Informa(const Tamanio& tamanio) {
    const Medida suelo = MideSuelo(tamanio);
    const Medida importacion = MideImportacion(tamanio);
    std::printf("%9d %9.2f %9.2f %8.2fx %9.2f %9.2f %8.2fx %9.1f %9.0f %10ld\n", tamanio.lineas, suelo.segundos,
                importacion.segundos, importacion.segundos / suelo.segundos, suelo.procesador, importacion.procesador,
                importacion.procesador / suelo.procesador, importacion.segundos / tamanio.lineas * 1e6,
                static_cast<double>(importacion.memoriaKb) / 1024, importacion.escritos >> 20);
    std::fflush(stdout);
    return {importacion, importacion.segundos / suelo.segundos};
}

void ComparaTamanios(Orden orden) {
    std::printf(
        "%s\n    lines   floor s  import s    ratio floor cpu import cpu   ratio   us/line   peak MB written MB\n",
        orden == Orden::Emision ? "In the order of issue, clients scattered" : "Client after client");
    const Comparada menor = Informa({100'000, 20'000, 50'000, orden});
    const Comparada mayor = Informa({1'000'000, 200'000, 500'000, orden});
    const bool seguidos = orden == Orden::Cliente;
    const double memoria = static_cast<double>(mayor.importacion.memoriaKb) / 1024;
    Resume(seguidos ? "Import of 100,000 lines, client after client" : "Import of 100,000 lines, clients scattered",
           menor.razon, " x the floor", "2.5");
    Resume(seguidos ? "Import of 1,000,000 lines, client after client" : "Import of 1,000,000 lines, clients scattered",
           mayor.importacion.segundos / menor.importacion.segundos, " x the time of 100,000", "10");
    Resume("Most memory of these imports", memoria, " MB", "200");
}

Medida MideConVueltaAtras(const Tamanio& tamanio, bool seDeshace) {
    return Mide([=] {
        const auto taller = std::make_shared<Taller>(tamanio);
        const OpcionesImportacion opciones{.prueba = false, .planilla = nullptr, .seDeshace = seDeshace};
        return [=] { Importa(*taller->Abre(), *taller, tamanio, opciones); };
    });
}

Medida MideVueltaAtras(const Tamanio& tamanio) {
    return Mide([=] {
        const auto taller = std::make_shared<Taller>(tamanio);
        const std::shared_ptr<Proceso> proceso = taller->Abre();
        Importa(*proceso, *taller, tamanio, {.prueba = false, .planilla = nullptr, .seDeshace = true});
        return [taller, proceso] {
            SinAvance nadie;
            Exige(VueltaAtras(*proceso->baseDatos).Deshace(1, nadie), "the import was not undone");
        };
    });
}

/// What an import pays for being undone one day, and what that takes then.
void ComparaVueltaAtras() {
    const Tamanio tamanio{100'000, 20'000, 50'000};
    const std::vector<Medida> medidas =
        MideDeATurnos(5, {[&] { return MideConVueltaAtras(tamanio, false); },
                          [&] { return MideConVueltaAtras(tamanio, true); }, [&] { return MideVueltaAtras(tamanio); }});
    std::printf("import cpu %.3f, noted %.3f, undo %.3f\n", medidas[0].procesador, medidas[1].procesador,
                medidas[2].procesador);
    Resume("Import of 100,000 lines that can be undone", medidas[1].procesador / medidas[0].procesador,
           " x the processor of one that can't", "1.1");
    Resume("Undo of 100,000 lines", medidas[2].procesador / medidas[1].procesador, " x the processor of their import",
           "1");
}

} // namespace

/// With "undo" only what an undo costs is measured. With an argument only the small file in the order of issue is
/// measured.
int main(int argc, char** argv) {
    try {
        if (argc > 1 && std::string_view(argv[1]) == "undo") {
            ComparaVueltaAtras();
            return 0;
        }
        if (argc > 1) {
            Informa({100'000, 20'000, 50'000});
            return 0;
        }
        ComparaTamanios(Orden::Emision);
        ComparaTamanios(Orden::Cliente);
        ComparaVueltaAtras();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
