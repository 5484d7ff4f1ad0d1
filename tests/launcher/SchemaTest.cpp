#include "launcher/Schema.h"
#include "data/Base.h"
#include "data/SchemaVersion.h"
#include "support/TemporaryBase.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace xa518;
using namespace Qt::StringLiterals;

namespace {

/// A base without tables.
class BaseVacia {
  public:
    Base& operator*() { return *m_base; }
    Base* operator->() { return m_base.get(); }

  private:
    QTemporaryDir m_carpeta;
    std::unique_ptr<Base> m_base = Base::Crea(m_carpeta.filePath(u"vacia.db"_s));
};

/// A folder of steps that a test writes itself.
class Pasos {
  public:
    void Escribe(const QString& nombre, const QByteArray& sql) {
        QFile archivo(m_carpeta.filePath(nombre));
        ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
        archivo.write(sql);
    }
    EstadoEsquema Aplica(Base& base) const { return Esquema(m_carpeta.path()).Aplica(base); }

  private:
    QTemporaryDir m_carpeta;
};

QString NombresDe(const Tabla& tabla) {
    QStringList nombres;
    for (const Columna& columna : tabla.columnas)
        nombres.append(columna.nombre);
    return nombres.join(u' ');
}

QString EnterasDe(const Tabla& tabla) {
    QStringList nombres;
    for (const Columna& columna : tabla.columnas)
        if (columna.entera)
            nombres.append(columna.nombre);
    return nombres.join(u' ');
}

bool HayTabla(BaseVacia& base, const QString& tabla) {
    return base->Lee(u"SELECT 1 FROM sqlite_master WHERE name = ?"_s, {tabla}).Siguiente();
}

} // namespace

TEST(Schema, FreshThenCurrent) {
    BaseVacia base;
    const EstadoEsquema creado = Esquema().Aplica(*base);
    EXPECT_EQ(creado.resultado, ResultadoEsquema::Creado);
    EXPECT_EQ(VersionDe(*base), kVersionEsquema);
    EXPECT_NO_THROW(ExigeVersion(*base));
    EXPECT_EQ(Esquema().Aplica(*base).resultado, ResultadoEsquema::Vigente);
}

// The record checksum runs over the columns in this order and by these types.
TEST(Schema, ColumnsStandWhereTheChecksumExpectsThem) {
    const prueba::BaseTemporal base;
    const QString cabecera =
        u"Doc_id_d tip_doc_d periodo Formulario fec_pro bcolibrad nrocheque cheque efectivo estado "
        "rectifica"_s;
    const QString clave = u"tip_doc_d Doc_id_d periodo Formulario"_s;
    const QString comprobante = u" tip_doc_per num_doc_per num_serie_cp num_cp"_s;
    const QString respuestas = u" cp_fact lista_clie med_pago fec_emision_cp mto_base_p mto_imp_p por_tasa_p"_s;
    const QList<std::pair<QString, QString>> casos = {
        {u"CAB"_s, cabecera + u" cNumero"_s},
        {u"HCAB"_s, cabecera + u" norden fec_env control correl cNumero"_s},
        {u"HDET"_s, u"Doc_id_d tip_doc_d periodo Formulario Casilla i_valor idcasilla correl cNumero"_s},
        {u"HF518PCAB"_s, clave + u" correl tip_doc_per num_doc_per des_razon des_apellido_p des_apellido_m des_nombres "
                                 "ctd_docs mto_base_p mto_imp_p ind_ruc cNumero"_s},
        {u"F518PDET"_s, clave + comprobante + respuestas + u" cNumero"_s},
        {u"HF518PDETVC"_s, clave + u" correl"_s + comprobante + u" tip_cp"_s + respuestas + u" cNumero"_s},
        {u"TMPF518PDET"_s, comprobante.sliced(1) + u" tip_cp"_s + respuestas},
        {u"F518PDETCP"_s,
         clave + comprobante + u" tip_doc_detcp num_serie_detcp num_detcp fec_emis_detcp mto_detcp cNumero"_s},
    };
    for (const auto& [tabla, columnas] : casos)
        EXPECT_EQ(NombresDe(base->Describe(tabla)), columnas) << tabla.toStdString();
    EXPECT_EQ(EnterasDe(base->Describe(u"HCAB"_s)), u"tip_doc_d estado"_s);
    EXPECT_EQ(EnterasDe(base->Describe(u"F518PCAB"_s)), u"tip_doc_d tip_doc_per ctd_docs ind_ruc"_s);
    EXPECT_EQ(EnterasDe(base->Describe(u"TMPF518PCAB"_s)), u"tip_doc_per ind_ruc"_s);
}

TEST(Schema, KeysIgnoreCaseAndTellKindsOfVouchersApart) {
    const prueba::BaseTemporal base;
    const QString alta = u"INSERT INTO TMPF518PDET (tip_doc_per, num_doc_per, num_serie_cp, num_cp, tip_cp)"
                         " VALUES (7, ?, '0001', '00000001', ?)"_s;
    base->Ejecuta(alta, {u"ax1"_s, u""_s});
    base->Ejecuta(alta, {u"ax1"_s, u"03"_s});
    try {
        base->Ejecuta(alta, {u"AX1"_s, u"03"_s});
        FAIL() << "the same key in capitals was taken";
    } catch (const ErrorBase& error) {
        EXPECT_TRUE(error.Es(NumeroError::ClaveDuplicada));
    }
}

TEST(Schema, MissingStepsAreMadeOverTheDataThatIsThere) {
    BaseVacia base;
    Pasos pasos;
    pasos.Escribe(u"0001_uno.sql"_s, "-- it's one\nCREATE TABLE UNO (a TEXT);\n");
    EXPECT_EQ(pasos.Aplica(*base).resultado, ResultadoEsquema::Creado);
    base->Ejecuta(u"INSERT INTO UNO VALUES ('queda')"_s);
    pasos.Escribe(u"0002_dos.sql"_s, "CREATE TABLE DOS (b TEXT);\nALTER TABLE UNO ADD COLUMN c TEXT;\n");
    const EstadoEsquema estado = pasos.Aplica(*base);
    EXPECT_EQ(estado.resultado, ResultadoEsquema::Actualizado);
    EXPECT_EQ(estado.version, 2);
    EXPECT_TRUE(base->Lee(u"SELECT 1 FROM UNO WHERE a = 'queda' AND c IS NULL"_s).Siguiente());
}

TEST(Schema, NewerBaseIsLeftAlone) {
    BaseVacia base;
    ASSERT_EQ(Esquema().Aplica(*base).resultado, ResultadoEsquema::Creado);
    base->Ejecuta(u"PRAGMA user_version=99"_s);
    EXPECT_EQ(Esquema().Aplica(*base).resultado, ResultadoEsquema::MasNuevo);
    EXPECT_EQ(VersionDe(*base), 99);
    try {
        ExigeVersion(*base);
        FAIL() << "a newer base was accepted";
    } catch (const ErrorBase& error) {
        EXPECT_TRUE(error.Es(NumeroError::VersionAjena));
    }
}

TEST(Schema, FailingStepIsUndoneWholeAndItsVersionNotWritten) {
    BaseVacia base;
    Pasos pasos;
    pasos.Escribe(u"0001_uno.sql"_s, "CREATE TABLE UNO (a TEXT);\n");
    pasos.Escribe(u"0002_mal.sql"_s, "CREATE TABLE DOS (b TEXT);\nCREATE TABLE UNO (a TEXT);\n");
    const EstadoEsquema estado = pasos.Aplica(*base);
    EXPECT_EQ(estado.resultado, ResultadoEsquema::Fallido);
    EXPECT_EQ(estado.version, 1);
    EXPECT_TRUE(estado.motivo.contains(u"UNO"_s)) << estado.motivo.toStdString();
    EXPECT_TRUE(HayTabla(base, u"UNO"_s));
    EXPECT_FALSE(HayTabla(base, u"DOS"_s));
}
