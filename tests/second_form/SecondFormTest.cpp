#include "data/RecordChecksum.h"
#include "data/Transaction.h"
#include "family/Configuration.h"
#include "family/Process.h"
#include "family/StoredDeclaration.h"
#include "form518/Form0518.h"
#include "launcher/CommandLine.h"
#include "launcher/DeclarationList.h"
#include "launcher/SpoolList.h"
#include "platform/Clock.h"
#include "reports/PdfFile.h"
#include "reports/ReportWriter.h"
#include "reports/SpoolFile.h"
#include "reports/SpoolRegistry.h"
#include "support/TemporaryBase.h"

#include <QGuiApplication>
#include <QTextStream>

namespace {

/// Two tables of its own, three boxes, a catalogue and a report.
Formulario Formulario0999(const QString& carpeta) {
    const QByteArray clave = "Doc_id_d TEXT, tip_doc_d INTEGER, periodo TEXT, Formulario TEXT";
    QByteArray sql;
    for (const QByteArray tabla : {"F999LIB", "F999RES"})
        sql += "CREATE TABLE " + tabla + " (" + clave + ", monto TEXT, cNumero TEXT);\nCREATE TABLE H" + tabla + " (" +
               clave + ", correl TEXT, monto TEXT, cNumero TEXT);\n";
    EscribeEn(carpeta + u"/0999_form_0999.sql"_s, sql);
    EscribeEn(carpeta + u"/tasas.csv"_s, "codigo,tasa,correl\n01,18.00,1\n");
    EscribeEn(carpeta + u"/Xa999.hlp"_s, "ayuda");
    return {
        .numero = u"0999"_s,
        .nombre = {},
        .modulo = {},
        .ayuda = carpeta + u"/Xa999.hlp"_s,
        .esquema = carpeta,
        .catalogo = carpeta,
        .catalogos = {{u"tasas.csv"_s, u"970"_s, {{}, {{u"codigo"_s, 1, 2}}}, {{}, {{u"tasa"_s, 3, 6}}}}},
        .ejemplo = {},
        .tablas =
            {kTablaCabecera,
             kTablaCasillas,
             {.nombre = u"F999LIB"_s, .numericas = 5, .numericasEnviada = 6, .turnoAlEliminar = 4},
             {.nombre = u"F999RES"_s, .numericas = 5, .numericasEnviada = 6, .turnoAlEliminar = 3, .copiaQueda = true}},
        .informes = {{u"LIB001"_s, u"Libro del mes"_s}},
        .casillas = {.talCual = {u"120"_s}, .idCasilla = {{u"130"_s, u"07"_s}}}};
}

class SecondForm : public testing::Test {
  protected:
    SecondForm() {
        EXPECT_EQ(Consola({u"--instalar"_s}), 0) << qPrintable(errores);
        LeerIni(proceso, ArchivoPerfil(entorno.rutaIni));
        AbrirBase(proceso, ArchivoPerfil(entorno.rutaIni));
    }
    /// The opening made the installation the current folder.
    ~SecondForm() override { QDir::setCurrent(QDir::rootPath()); }

    int Consola(const QStringList& orden) {
        errores.clear();
        QString salida;
        QTextStream flujoSalida(&salida);
        QTextStream flujoErrores(&errores);
        return EjecutaConsola(QStringList{u"consola"_s} + orden, {flujoSalida, flujoErrores}, entorno);
    }
    void Graba() {
        GrabaCabecera(*proceso.baseDatos, clave,
                      [](Registro& cabecera) { cabecera.Pon(u"estado", 0).Pon(u"rectifica", u"0"_s); });
        const QList<CasillaGuardada> casillas{{u"110"_s, u"007.4"_s}, {u"120"_s, u"007.4"_s}, {u"130"_s, u"5"_s}};
        for (const CasillaGuardada& una : casillas)
            GrabaCasilla(*proceso.baseDatos, propio.casillas, clave, una);
        for (const TablaDeDeclaracion& tabla : propio.tablas.sliced(2)) {
            Registro fila(proceso.baseDatos->Describe(tabla.nombre));
            fila.Pon(u"Doc_id_d", clave.ruc.Texto()).Pon(u"tip_doc_d", 6).Pon(u"periodo", clave.periodo.Texto());
            fila.Pon(u"Formulario", clave.formulario).Pon(u"monto", u"12.50"_s);
            AgregaConChecksum(*proceso.baseDatos, fila, tabla.numericas);
        }
    }
    QString Valor(const QString& sql) const {
        Registros fila = proceso.baseDatos->Lee(sql);
        return fila.Siguiente() ? fila.Texto(0) : QString();
    }

    QTemporaryDir raiz;
    QTemporaryDir m_suyo;
    const Formulario propio = Formulario0999(m_suyo.path());
    const ClaveDeclaracion clave{.ruc = Ruc(kRucMuestra), .periodo = Periodo(2026, 9), .formulario = propio.numero};
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
    EntornoConsola entorno{.reloj = reloj,
                           .rutaIni = raiz.filePath(u"XA000.INI"_s),
                           .carpeta = raiz.filePath(u"datos"_s),
                           .usuario = u"CONTADOR"_s,
                           .formularios = {Formulario0518(), propio}};
    Proceso proceso{reloj, entorno.formularios, propio.numero};
    QString errores;
};

} // namespace

TEST_F(SecondForm, IsInstalledSavedListedSentAndDeletedBesideTheFirst) {
    EXPECT_EQ(BytesDe(entorno.carpeta + u"/0999/Xa999.hlp"_s), "ayuda");
    EXPECT_TRUE(QFile::exists(entorno.carpeta + u"/0518/Xa518.hlp"_s));
    EXPECT_EQ(Valor(u"SELECT Funcion FROM PARAM WHERE Numero = '970'"_s), u"  18.00 "_s);
    Graba();
    AgregaCabecera(*proceso.baseDatos, kRucMuestra, u"202609"_s, 0); // of the other form, for the same month
    EXPECT_EQ(Valor(u"SELECT group_concat(Casilla & ':' & i_valor & ':' & idcasilla) FROM DET"_s),
              u"110:7:01,120:007.4:01,130:5:07"_s);
    EXPECT_EQ(ListaDeclaraciones(*proceso.baseDatos, entorno.formularios, TipoDeLista::Registradas).size(), 2);

    const QStringList envio{u"--enviar"_s, kRucMuestra, u"202609"_s};
    EXPECT_EQ(Consola(envio), 2) << "which form isn't told";
    ASSERT_EQ(Consola(envio + QStringList{u"--formulario"_s, propio.numero}), 0) << qPrintable(errores);
    const QList<DeclaracionListada> enviadas =
        ListaDeclaraciones(*proceso.baseDatos, entorno.formularios, TipoDeLista::Enviadas);
    ASSERT_EQ(enviadas.size(), 1);
    EXPECT_EQ(enviadas.first().clave.formulario, propio.numero);
    EXPECT_EQ(Valor(u"SELECT group_concat(Formulario) FROM CAB"_s), u"0518"_s);
    EXPECT_EQ(Valor(u"SELECT (SELECT count(*) FROM F999LIB) & correl & monto FROM HF999LIB"_s), u"0112.50"_s);

    EliminaDeclaracion(*proceso.baseDatos, propio, enviadas.first().clave, proceso.SuFirma());
    EXPECT_EQ(Valor(u"SELECT (SELECT count(*) FROM HCAB) & (SELECT count(*) FROM HF999LIB) & (SELECT count(*) FROM"
                    " HF999RES)"_s),
              u"001"_s);
}

TEST_F(SecondForm, IsPrintedToAPdfAndItsReportListedByItsTitle) {
    int cuantos = 1;
    char nombre[] = "prueba";
    char* argumentos[] = {nombre, nullptr};
    const QGuiApplication aplicacion(cuantos, argumentos);
    const QString spool =
        RutaDeInforme(proceso.rutaRPT, NuevoReporte(proceso, propio.informes.keys().first(), 6, kRucMuestra));
    {
        ArchivoSpool archivo(spool);
        EscritorInforme(archivo, 80).ImprimeLinea(u"LIBRO DEL MES"_s);
        archivo.Termina();
    }
    EXPECT_EQ(EscribePdf({spool}, raiz.filePath(u"libro.pdf"_s), {u"Libro"_s, proceso.sysUser, reloj.Ahora()}), 1);
    const QList<InformeRegistrado> informes =
        Informes(*proceso.baseDatos, proceso.rutaRPT, entorno.formularios).Lista();
    ASSERT_EQ(informes.size(), 1);
    EXPECT_EQ(informes.first().titulo, u"Libro del mes"_s);
}
