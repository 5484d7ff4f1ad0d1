#include "data/Base.h"
#include "data/Catalog.h"
#include "data/DocumentTypes.h"
#include "data/SchemaVersion.h"
#include "data/Transaction.h"
#include "family/ChangeLog.h"
#include "family/WorkLock.h"
#include "form518/Form0518.h"
#include "form518/FormCatalogs.h"
#include "launcher/CommandLine.h"
#include "launcher/Declarants.h"
#include "launcher/Schema.h"
#include "launcher/Sending.h"
#include "platform/Clock.h"
#include "platform/ProfileFile.h"
#include "support/PrivateFile.h"
#include "support/ServerInstallation.h"
#include "support/TemporaryBase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

namespace {

class Console : public testing::Test {
  protected:
    Console() : rutaIni(raiz.filePath(u"config/XA000.INI"_s)), carpeta(raiz.filePath(u"datos/xa518"_s)) {}
    ~Console() override { QDir::setCurrent(QDir::rootPath()); } // the opening made the installation the current folder

    int Corre(const QStringList& argumentos) {
        salida.clear();
        errores.clear();
        QTextStream flujoSalida(&salida);
        QTextStream flujoErrores(&errores);
        return EjecutaConsola(QStringList{u"consola"_s} + argumentos, {flujoSalida, flujoErrores},
                              {reloj, rutaIni, carpeta, u"CONTADOR"_s, {Formulario0518()}});
    }
    const QString& RutaBase() const { return lugar.Ruta(); }
    std::unique_ptr<Base> Abre() const { return Base::Abre(RutaBase()); }

    QTemporaryDir raiz;
    QString rutaIni;
    QString carpeta;
    LugarDeInstalacion lugar{ArchivoPerfil(rutaIni), carpeta};
    QString salida;
    QString errores;
    RelojFijo reloj{QDateTime({2026, 11, 21}, {10, 0})};
};

} // namespace

TEST_F(Console, InstallsPrivatelyWithTheRowsThatTheModulesRelyOn) {
    ASSERT_EQ(Corre({u"--instalar"_s, u"--ejemplo"_s}), 0) << qPrintable(errores);
    for (const QString& nombre :
         {u""_s, u"RPT"_s, u"TMP"_s, u"BMP"_s, u"0518"_s, u"EJEMPLO"_s, u"XA000.DB"_s, u"XA000.MDW"_s,
          u"0518/Xa518.hlp"_s, u"EJEMPLO/0518"_s + kRucMuestra + u"202609.TXT"_s}) {
        EXPECT_TRUE(QFile::exists(carpeta + u'/' + nombre)) << qPrintable(nombre);
        EXPECT_TRUE(EsPrivado(carpeta + u'/' + nombre));
    }
    const ArchivoPerfil perfil(rutaIni);
    EXPECT_EQ(perfil.Lee(u"Options", u"SysPath"), QDir::toNativeSeparators(carpeta + u'/'));
    EXPECT_EQ(perfil.Lee(u"Options", u"DBPath") + perfil.Lee(u"Options", u"DBName"),
              QDir::toNativeSeparators(RutaBase()));
    EXPECT_EQ(perfil.Lee(u"Options", u"SysUser"), u"CONTADOR"_s);
    const auto base = Abre();
    EXPECT_EQ(Declarantes(*base).Busca(Ruc(kRucMuestra)).value().usuario, u"CONTADOR"_s);
    const Catalogo catalogo(*base);
    // The row that the modules use when this one is missing: any piece out of its column would show.
    EXPECT_EQ(catalogo.Funcion(u"044"_s, u"6"_s),
              u"REG. UNICO DE CONTRIBUYENTES   RUC           11 000110 01 000001000001100111011111"
              "                                           0 5 0"_s);
    QStringList ofrecidos; // the types that the import takes are all there for a person, too
    for (const TipoDocumento& tipo : DocumentosOfrecidos(*base, UsosDocumento::kEnSujetos))
        ofrecidos += tipo.codigo.Texto();
    EXPECT_EQ(ofrecidos.join(u' '), u"06 01 04 07 03 02 11"_s);
    const QString codigos =
        u"1 3 9 10 151 201 221 228 239 532 853 854 855 857 858 859 868 869 870 871 872 873 874 875 876 "
        "877 878 879 880 881 882 883 884 885 886 887 888 889 890 891 892 901 982 983 984 985 986 987 "
        "988 989 990 991 992 993 994 995 996"_s;
    for (const QString& codigo : codigos.split(u' '))
        EXPECT_FALSE(catalogo.DescError(codigo).isEmpty()) << qPrintable(codigo);
}

TEST_F(Console, ReinstallingRenewsTheCatalogueAndKeepsWhatTheUserMade) {
    ASSERT_EQ(Corre({u"--instalar"_s, u"--ejemplo"_s}), 0);
    const QString archivo = carpeta + u"/EJEMPLO/0518"_s + kRucMuestra + u"202610.TXT"_s;
    EscribeEn(archivo, "corregido|");
    AgregaCabecera(*Abre(), kRucMuestra, u"202609"_s, 0);
    for (const QString& sql :
         {u"UPDATE CONT SET Nombre = 'OTRO NOMBRE'"_s, u"INSERT INTO CLAVES VALUES ('CONTADOR', '0')"_s,
          u"UPDATE CLAVES SET Tipo = '0' WHERE Usuario = 'USUARIO'"_s,
          u"INSERT INTO PARAM VALUES ('998', '0304020', 'de otro módulo', 4)"_s,
          u"UPDATE PARAM SET Funcion = 'x' WHERE Numero = '830'"_s,
          u"UPDATE PARAM SET correl_param = 77 WHERE Numero = '004' AND Argumento = '02'"_s,
          u"UPDATE ERROR SET DescError = '' WHERE CodError = '0151'"_s})
        Abre()->Ejecuta(sql);
    ArchivoPerfil(rutaIni).Escribe(u"Options", u"SysUser", u"JEFE");
    ASSERT_EQ(Corre({u"--instalar"_s, u"--ejemplo"_s}), 0) << qPrintable(errores);
    EXPECT_TRUE(salida.contains(u"0 filas nuevas, 3 cambiadas"_s)) << qPrintable(salida);
    EXPECT_EQ(BytesDe(archivo), "corregido|");
    EXPECT_EQ(ArchivoPerfil(rutaIni).Lee(u"Options", u"SysUser"), u"JEFE"_s);
    const auto base = Abre();
    const Catalogo catalogo(*base);
    EXPECT_EQ(catalogo.Funcion(u"830"_s, u"01"_s) + catalogo.Funcion(u"998"_s, u"0304020"_s),
              u"209912de otro módulo"_s);
    EXPECT_FALSE(catalogo.DescError(u"0151"_s).isEmpty());
    EXPECT_EQ(catalogo.TipoUsuario(u"USUARIO"_s) + catalogo.TipoUsuario(u"CONTADOR"_s), u"00"_s);
    EXPECT_EQ(Declarantes(*base).Busca(Ruc(kRucMuestra)).value().nombre, u"OTRO NOMBRE"_s);
    EXPECT_TRUE(base->Lee(u"SELECT 1 FROM CAB"_s).Siguiente());
}

TEST_F(Console, RegistersDeclarantsByTheRulesOfTheirNumber) {
    ASSERT_EQ(Corre({u"--instalar"_s}), 0);
    const struct {
        const char* que;
        QString numero;
        QStringList resto; ///< the name, and what follows it
        int codigo;
    } casos[] = {
        {"a company", kRucMuestra, {u"O'HIGGINS & HIJOS"_s}, 0},
        {"its new name, the same owner", kRucMuestra, {u"  LOS MOLLES  "_s}, 0},
        {"a number of the old form", u"12345678"_s, {u"ANTIGUO"_s, u"--usuario"_s, u"JEFE"_s}, 0},
        {"a wrong check digit", u"20990518019"_s, {u"X"_s}, 2},
        {"letters in the old form", u"1234567A"_s, {u"X"_s}, 2},
        {"a blank name", kRucMuestra, {u" "_s}, 2},
        {"a name past the lists' width", kRucMuestra, {QString(51, u'A')}, 2},
        {"a line break", kRucMuestra, {u"A\nB"_s}, 2},
        {"an owner on two lines", kRucMuestra, {u"X"_s, u"--usuario"_s, u"JEFE\nDBPath=/"_s}, 2},
        {"an owner without end", kRucMuestra, {u"X"_s, u"--usuario"_s, QString(51, u'A')}, 2},
    };
    for (const auto& [que, numero, resto, codigo] : casos) {
        EXPECT_EQ(Corre(QStringList{u"--declarante"_s, numero, u"--nombre"_s} + resto), codigo) << que;
        EXPECT_EQ(errores.isEmpty(), codigo == 0) << que;
    }
    const auto base = Abre();
    QStringList lista;
    for (const Declarante& declarante : Declarantes(*base).Lista())
        lista.append(declarante.ruc.Texto() + u' ' + declarante.nombre + u' ' + declarante.usuario);
    EXPECT_EQ(lista, QStringList({u"12345678 ANTIGUO JEFE"_s, kRucMuestra + u" LOS MOLLES CONTADOR"_s}));
}

TEST_F(Console, MakesACopyBeforeASendAndPutsItBack) {
    ASSERT_EQ(Corre({u"--instalar"_s}), 0);
    AgregaCabecera(*Abre(), kRucMuestra, u"202609"_s, 0);
    AgregaCabecera(*Abre(), kRucMuestra, u"202610"_s, 9);
    const QStringList envio{u"--enviar"_s, kRucMuestra, u"202609"_s};
    ASSERT_EQ(Corre(envio), 0) << qPrintable(errores);
    EXPECT_EQ(salida, u"Copia enviada: 1\nNúmero de control: 10000001\n"_s + kNadaSeTransmite + u'\n');
    EXPECT_EQ(Corre(envio), 2);
    EXPECT_EQ(Corre({u"--enviar"_s, kRucMuestra, u"202610"_s}), 2);
    EXPECT_TRUE(salida.isEmpty());
    const QString copia = carpeta + u"/RESPALDOS/XA000-20261121-100000.DB"_s;
    ASSERT_TRUE(QFile::exists(copia));
    EXPECT_EQ(Corre({u"--restaurar"_s, carpeta + u"/XA000.MDW"_s}), 2);
    ASSERT_EQ(Corre({u"--restaurar"_s, copia}), 0) << qPrintable(errores);
    EXPECT_EQ(Corre(envio), 0) << qPrintable(errores); // it is registered again
    ASSERT_EQ(Corre({u"--respaldar"_s}), 0) << qPrintable(errores);
    EXPECT_TRUE(QFile::exists(salida.section(u": "_s, 1).trimmed())) << qPrintable(salida);
    QFile::remove(RutaBase());
    EXPECT_EQ(Corre({u"--respaldar"_s}), 3);
    EXPECT_TRUE(salida.isEmpty());
}

// The base that is lost had given one number more than its newest copy knows of.
TEST_F(Console, ACopyTakesBackNeitherNumbersNorReportsEvenOfALostBase) {
    ASSERT_EQ(Corre({u"--instalar"_s}), 0);
    AgregaCabecera(*Abre(), kRucMuestra, u"202609"_s, 0);
    const QStringList envio{u"--enviar"_s, kRucMuestra, u"202609"_s};
    const QStringList restaura{u"--restaurar"_s, carpeta + u"/RESPALDOS/XA000-20261121-100000.DB"_s};
    ASSERT_EQ(Corre(envio), 0) << qPrintable(errores);
    Abre()->Ejecuta(u"INSERT INTO SPOOL (CodRep, Secuencia) VALUES ('PER006', '000001')"_s);
    for (const QString& numero : {u"2"_s, u"3"_s}) {
        ASSERT_EQ(Corre(restaura), 0) << qPrintable(errores);
        EXPECT_TRUE(Abre()->Lee(u"SELECT 1 FROM SPOOL"_s).Siguiente()) << "its file is still there";
        ASSERT_EQ(Corre(envio), 0) << qPrintable(errores);
        EXPECT_TRUE(salida.startsWith(u"Copia enviada: %1\nNúmero de control: 1000000%1\n"_s.arg(numero)));
        EscribeEn(RutaBase(), "restos de una base");
    }
}

TEST_F(Console, AnotherOriginalOfASentMonthIsAskedFor) {
    ASSERT_EQ(Corre({u"--instalar"_s}), 0);
    const QStringList envio{u"--enviar"_s, kRucMuestra, u"202609"_s};
    for (const int codigo : {0, 2}) {
        AgregaCabecera(*Abre(), kRucMuestra, u"202609"_s, 0);
        EXPECT_EQ(Corre(envio), codigo) << qPrintable(errores);
    }
    EXPECT_TRUE(errores.contains(u"(copia 1)"_s) && errores.contains(u"--otro-original"_s)) << qPrintable(errores);
    EXPECT_EQ(Corre(envio + QStringList{u"--otro-original"_s}), 0) << qPrintable(errores);
    AgregaCabecera(*Abre(), kRucMuestra, u"202609"_s, 0);
    Abre()->Ejecuta(u"UPDATE CAB SET rectifica = '1'"_s);
    EXPECT_EQ(Corre(envio), 0) << qPrintable(errores);
}

TEST_F(Console, TheLogIsGivenToAProgramAndSoIsWhatIsWrong) {
    ASSERT_EQ(Corre({u"--instalar"_s}), 0);
    ASSERT_EQ(Corre({u"--declarante"_s, kRucMuestra, u"--nombre"_s, u"ANTES \"Y\""_s}), 0) << qPrintable(errores);
    ASSERT_EQ(Corre({u"--declarante"_s, kRucMuestra, u"--nombre"_s, u"AHORA"_s}), 0);
    const auto json = [this] { return QJsonDocument::fromJson(salida.toUtf8()).object(); };
    ASSERT_EQ(Corre({u"--bitacora"_s, u"--json"_s, u"--ruc"_s, kRucMuestra}), 0);
    EXPECT_EQ(json()[u"asientos"_s].toArray().size(), 2);
    EXPECT_EQ(json()[u"asientos"_s][0][u"cambios"_s].toArray(),
              (QJsonArray{
                  QJsonObject{{u"dato"_s, u"nombre"_s}, {u"antes"_s, u"ANTES \"Y\""_s}, {u"despues"_s, u"AHORA"_s}}}));
    const QList<QStringList> malas = {{u"--nohay"_s},
                                      {u"--bitacora"_s, u"--csv"_s},
                                      {u"--bitacora"_s, u"--periodo"_s, u"13/2026"_s},
                                      {u"--respaldar"_s}};
    for (const QStringList& mala : malas) {
        EXPECT_EQ(Corre(mala + QStringList{u"--json"_s}), 2) << qPrintable(mala.join(u' '));
        EXPECT_EQ(json()[u"codigo"_s].toInt(), 2);
        EXPECT_EQ(errores, u"consola: %1\n"_s.arg(json()[u"mensajes"_s][0].toString()));
    }
}

TEST_F(Console, WhileADeclarationIsOpenNothingIsTakenFromUnderIt) {
    ASSERT_EQ(Corre({u"--instalar"_s, u"--ejemplo"_s}), 0);
    AgregaCabecera(*Abre(), kRucMuestra, u"202609"_s, 0);
    ASSERT_EQ(Corre({u"--respaldar"_s}), 0);
    const QStringList copias = QDir(carpeta + u"/RESPALDOS"_s).entryList(QDir::Files);
    {
        const TrabajoUnico forma(RutaBase());
        const QList<QStringList> ordenes = {{u"--enviar"_s, kRucMuestra, u"202609"_s},
                                            {u"--restaurar"_s, carpeta + u"/RESPALDOS/"_s + copias.value(0)},
                                            {u"--instalar"_s}};
        for (const QStringList& orden : ordenes) {
            EXPECT_EQ(Corre(orden), 2) << qPrintable(orden.first());
            EXPECT_TRUE(errores.contains(u"tiene abierta una declaración. Ciérrela"_s)) << qPrintable(errores);
        }
        const auto base = Abre();
        base->Ejecuta(u"DELETE * FROM CAB"_s);
        EXPECT_THROW((void)Declarantes(*base).Elimina(Ruc(kRucMuestra), FirmaDe(u"ANA"_s, reloj)), TrabajoAjeno);
    }
    EXPECT_EQ(QDir(carpeta + u"/RESPALDOS"_s).entryList(QDir::Files), copias);
    EXPECT_TRUE(Declarantes(*Abre()).Elimina(Ruc(kRucMuestra), FirmaDe(u"ANA"_s, reloj)));
}

TEST_F(Console, RefusesWhatItDoesNotUnderstand) {
    for (const QString& linea :
         u"|suelto|--carpeta x|--instalar --carpeta|--instalar --nombre x|--instalar --enviar 20990518018 202609|"
         "--instalar suelto|--enviar 20990518018|--declarante 20990518018"_s.split(u'|')) {
        EXPECT_EQ(Corre(linea.split(u' ', Qt::SkipEmptyParts)), 2) << qPrintable(linea);
        EXPECT_TRUE(errores.startsWith(u"consola: "_s)) << qPrintable(linea);
    }
    for (const QString& mala : {u"/uno\ndos"_s, u'/' + QString(240, u'a')})
        EXPECT_EQ(Corre({u"--instalar"_s, u"--carpeta"_s, carpeta + mala}), 2) << "no reader would find it again";
    EXPECT_EQ(Corre({u"--enviar"_s, kRucMuestra, u"202609"_s}), 3); // no installation yet
    EXPECT_FALSE(QFile::exists(rutaIni));
    EXPECT_FALSE(QFile::exists(carpeta));
    EXPECT_EQ(Corre({u"--modulo"_s, u"--nohay"_s, u"--help"_s}), 0);
    EXPECT_TRUE(salida.startsWith(u"Uso: consola"_s));
}

TEST_F(Console, DatabaseAndFileFailuresHaveTheirOwnCode) {
    ASSERT_EQ(Corre({u"--instalar"_s}), 0);
    AgregaCabecera(*Abre(), kRucMuestra, u"202609"_s, 0);
    const QStringList envio{u"--enviar"_s, kRucMuestra, u"202609"_s};
    {
        const auto otro = Abre();
        const Transaccion ocupada = otro->Comienza();
        EXPECT_EQ(Corre(envio), 3);
        EXPECT_TRUE(errores.contains(u"3051"_s)) << qPrintable(errores);
    }
    Abre()->PonVersionDelEsquema(99);
    for (const QStringList& argumentos : {envio, QStringList{u"--instalar"_s}}) {
        EXPECT_EQ(Corre(argumentos), 3);
        EXPECT_TRUE(errores.contains(u"versión 99"_s)) << qPrintable(errores);
    }
    EXPECT_EQ(VersionDe(*Abre()), 99);

    EscribeEn(RutaBase(), QByteArray(4096, 'x'));
    EXPECT_EQ(Corre({u"--instalar"_s}), 3);
    EXPECT_EQ(BytesDe(RutaBase()), QByteArray(4096, 'x'));
    EXPECT_EQ(Corre({u"--instalar"_s, u"--carpeta"_s, RutaBase()}), 3);
}
