#include "batch/BatchFixture.h"
#include "family/ChangeLog.h"
#include "family/WorkLock.h"
#include "launcher/Sending.h"
#include "values/CheckDigits.h"

namespace {

/// What whoever automates the month's end leans on.
class Scripts : public Batch {
  protected:
    [[nodiscard]] std::unique_ptr<Base> Abre() const { return Base::Abre({m_lugar.Ruta(), Puesto()}); }
    static ClaveDeclaracion Clave() {
        return {.ruc = Ruc(kRuc), .periodo = *Periodo::DeTabla(u"202609"_s), .formulario = u"0518"_s};
    }
    /// Sends the month; returns the control number.
    [[nodiscard]] QString Envia() const {
        const std::unique_ptr<Base> base = Abre();
        return Envio(*base, FormulariosConocidos())
            .Envia(Clave(), OtroOriginal::Admitido, FirmaDe(u"USUARIO"_s, RelojSistema()))
            .control;
    }
    /// Every row of the saved detail of a period, in its order.
    [[nodiscard]] QStringList Detalle(const QString& periodo) const {
        const std::unique_ptr<Base> base = Abre();
        QStringList filas;
        for (const QString& tabla : {u"F518PCAB"_s, u"F518PDET"_s, u"F518PDETVC"_s, u"F518PDETCP"_s}) {
            Registros leidas =
                base->Lee(u"SELECT * %1"_s.arg(base->EnOrdenDeAlta(tabla, u"WHERE periodo = ?"_s)), {periodo});
            const int columnas = static_cast<int>(base->Describe(tabla).columnas.size());
            while (leidas.Siguiente()) {
                QStringList fila{tabla};
                for (int i = 0; i < columnas; ++i)
                    fila.append(leidas.EsNulo(i) ? u"NULL"_s : leidas.Texto(i));
                filas.append(fila.join(u'|'));
            }
        }
        return filas;
    }
    [[nodiscard]] QString Carpeta(const QString& nombre) const { return m_carpeta.filePath(nombre); }
};

TEST_F(Scripts, AllOrNothingSavesNothingForARefusedLine) {
    const QString octubre =
        u"declarar --ruc 20990518018 --periodo 202610 --hoy 21/11/2026 --todo-o-nada --efectivo --percepciones "_s +
        Ejemplo();
    ASSERT_EQ(Corre(octubre + u" --json"_s), 5) << m_errores.toStdString();
    EXPECT_TRUE(m_errores.contains(u"No se ha grabado nada."_s));
    EXPECT_EQ(Cuenta(u"CAB"_s) + Cuenta(u"TMPF518PDET"_s) + Cuenta(u"TMPF518PCAB"_s), 0);
    const QJsonArray rechazadas = Json()[u"lineas_rechazadas"_s].toArray();
    EXPECT_EQ(rechazadas.size(), Json()[u"rechazados"_s].toInt());
    EXPECT_EQ(rechazadas[1].toObject(),
              (QJsonObject{{u"archivo"_s, u"051820990518018202610.TXT"_s},
                           {u"linea"_s, 5},
                           {u"campo"_s, u"Tipo de documento"_s},
                           {u"valor"_s, u"05"_s},
                           {u"codigo"_s, u"0009"_s},
                           {u"motivo"_s, u"El tipo de documento de identidad no es válido"_s}}));

    const QString limpio = u"declarar"_s + kClave + u" --todo-o-nada --json --percepciones "_s + Ejemplo();
    ASSERT_EQ(Corre(limpio), 6) << "no way of payment";
    EXPECT_EQ(Json()[u"estado"_s].toInt(), 9);
    ASSERT_EQ(Corre(limpio), 5) << "its vouchers are there already";
    EXPECT_EQ(Cuenta(u"F518PDETCP"_s), Cuenta(u"TMPF518PDETCP"_s)) << "what is stored stays, and stands at work again";
    ASSERT_EQ(Corre(u"declarar --todo-o-nada --efectivo --json"_s + kClave), 0);
    EXPECT_EQ(Json()[u"cifras"_s].toObject()[u"501"_s], QJsonValue(60));
    EXPECT_FALSE(Json()[u"cifras"_s].toObject().contains(u"007"_s)) << "a period is no amount";
}

TEST_F(Scripts, WhatIsExportedGoesBackInToTheSameTables) {
    // The month of the sample, and one of each band of the law before it, with what only files of theirs may say.
    const struct {
        QString periodo;
        QByteArray percepciones;
        QByteArray ventas;
    } meses[] = {
        {u"202609"_s, BytesDe(ArchivoDelMes()), BytesDe(Ejemplo() + u"/0518"_s + kRuc + u"202609VC.TXT"_s)},
        {u"200502"_s,
         "6|20991001370|bodegas peña||||1|22|14/02/2005|1||1|119.5|07|4|7|12/02/2005|100.50|\n"
         "6|20991001370|bodegas peña||||1|22|14/02/2005|1||1|119.5|1|4|7|12/02/2005|220|\n",
         "1|45678901||QUISPE||MARÍA|1|45|15/02/2005|0||0|250.005|03|\n"},
        {u"200804"_s,
         "4|X-77||O'HIGGINS|DE LA CRUZ|ANA|1|23|14/04/2008|0|0|0|.75|99|1|123456789012345|12/04/2008|.75|\n"
         "6|20991001370|BODEGAS||||1|24|14/04/2008|1|1|0|1000.00|12|1|9|12/04/2008|1000|\n",
         ""},
    };
    for (const auto& [periodo, percepciones, ventas] : meses) {
        const QString nombre = u"/0518"_s + kRuc + periodo;
        const QString clave = u" --hoy 21/11/2026 --ruc 20990518018 --periodo "_s + periodo;
        const QString origen = Carpeta(u"origen"_s);
        ASSERT_TRUE(QDir().mkpath(origen));
        EscribeEn(origen + nombre + u".TXT"_s, percepciones);
        QString archivos = u" --percepciones "_s + origen;
        if (!ventas.isEmpty()) {
            EscribeEn(origen + nombre + u"VC.TXT"_s, ventas);
            archivos += u" --ventas "_s + origen;
        }
        ASSERT_EQ(Corre(u"declarar --efectivo --todo-o-nada"_s + clave + archivos), 0)
            << qPrintable(periodo + m_salida + m_errores);
        const QStringList antes = Detalle(periodo);
        const QString destino = Carpeta(u"destino"_s);
        ASSERT_EQ(Corre(u"exportar --json --carpeta "_s + destino + clave), 0) << qPrintable(m_salida + m_errores);
        EXPECT_EQ(Json()[u"exportadas"_s].toInt(), percepciones.count('\n') + ventas.count('\n'));
        EXPECT_EQ(QFile::exists(destino + nombre + u"VC.TXT"_s), !ventas.isEmpty());
        EXPECT_EQ(Corre(u"exportar --carpeta "_s + destino + clave), 2) << "the files are there already";

        ASSERT_EQ(Corre(u"borrar"_s + clave), 0) << qPrintable(m_errores);
        EXPECT_EQ(Detalle(periodo), QStringList());
        archivos.replace(origen, destino);
        ASSERT_EQ(Corre(u"declarar --efectivo --todo-o-nada"_s + clave + archivos), 0) << qPrintable(m_errores);
        EXPECT_EQ(Detalle(periodo), antes) << qPrintable(periodo);
    }
    // The sent copy holds the same.
    const QByteArray registrada = BytesDe(Carpeta(u"destino/0518"_s + kRuc + u"202609.TXT"_s));
    ASSERT_FALSE(Envia().isEmpty());
    ASSERT_EQ(Corre(u"exportar --enviada 1 --carpeta "_s + Carpeta(u"enviada"_s) + kClave), 0);
    EXPECT_EQ(BytesDe(Carpeta(u"enviada/0518"_s + kRuc + u"202609.TXT"_s)), registrada);
}

TEST_F(Scripts, WhatAFileCannotHoldIsLeftOutAndNamed) {
    ASSERT_EQ(Corre(u"declarar --efectivo"_s + kClave + u" --percepciones "_s + ArchivoDelMes()), 0);
    {
        const std::unique_ptr<Base> base = Abre();
        const QString primero = u" WHERE num_doc_per = '20991000004' AND num_cp = '00020000'"_s;
        base->Ejecuta(u"UPDATE F518PDET SET por_tasa_p = '0.50'"_s + primero);
        base->Ejecuta(u"DELETE FROM F518PDETCP WHERE num_cp = '00020002'"_s);
        base->Ejecuta(u"DELETE FROM F518PDET WHERE num_cp = '00020006'"_s);
        base->Ejecuta(u"UPDATE F518PCAB SET des_razon = 'BODEGAS|CERRO' WHERE num_doc_per = '20991009591'"_s);
        base->Ejecuta(u"INSERT INTO F518PCAB (tip_doc_d, Doc_id_d, periodo, Formulario, tip_doc_per, num_doc_per)"
                      " VALUES (6, ?, '202609', '0518', 1, '40000001')"_s,
                      {kRuc});
    }
    ASSERT_EQ(Corre(u"exportar --json --carpeta "_s + Carpeta(u"destino"_s) + kClave), 4) << qPrintable(m_errores);
    QStringList faltan;
    for (const QJsonValue& fila : Json()[u"sin_lugar"_s].toArray())
        faltan.append(fila[u"fila"_s].toString() + u": "_s + fila[u"motivo"_s].toString());
    EXPECT_EQ(faltan.filter(u"P001 00020000"_s), QStringList{u"06 20991000004 P001 00020000 08 F001 00000301: "
                                                             "Volvería con otros datos: la tasa o la percepción."_s});
    EXPECT_EQ(faltan.filter(u"P001 00020002"_s).filter(u"no tiene comprobantes de pago"_s).size(), 1);
    EXPECT_EQ(faltan.filter(u"0002 00020006 01 F001"_s).filter(u"no está en la declaración"_s).size(), 2);
    EXPECT_FALSE(faltan.filter(u"20991009591"_s).filter(u"separador"_s).isEmpty());
    EXPECT_TRUE(faltan.contains(u"01 40000001: El cliente no tiene comprobantes."_s));
    const QByteArray archivo = BytesDe(Carpeta(u"destino/0518"_s + kRuc + u"202609.TXT"_s));
    EXPECT_FALSE(archivo.contains("00020000|") || archivo.contains("BODEGAS|CERRO"));
    EXPECT_EQ(archivo.count('\n'), Json()[u"exportadas"_s].toInt());
}

TEST_F(Scripts, ASentCopyGetsItsOrderAndIsDeletedUnderGuardAndLog) {
    ASSERT_EQ(Corre(u"declarar --efectivo --percepciones "_s + Ejemplo() + kClave), 0) << m_errores.toStdString();
    const QString control = Envia();
    const QString registrar = u"registrar-orden"_s + kClave + u" --numero 87654321 --enviada "_s;
    const QString digitos = u" --digitos "_s + DigitosOrden(control, u"87654321"_s);
    EXPECT_EQ(Corre(registrar + u"1 --digitos 00"_s), 2);
    EXPECT_TRUE(m_errores.contains(u"Digito verificador incorrecto"_s)) << m_errores.toStdString();
    EXPECT_EQ(Corre(registrar + u"2"_s + digitos), 2) << "no such copy";
    ASSERT_EQ(Corre(registrar + u"1"_s + digitos), 0) << m_errores.toStdString();
    EXPECT_TRUE(m_salida.contains(u"se registró satisfactoriamente"_s));
    ASSERT_EQ(Corre(u"listar --enviadas --json"_s), 0);
    EXPECT_EQ(Json()[u"declaraciones"_s][0][u"norden"_s].toString(), u"87654321"_s);

    ASSERT_EQ(Corre(u"declarar --efectivo --rectifica"_s + kClave), 1) << "it has nothing to pay";
    {
        const std::unique_ptr<Base> otro = Base::Abre(m_lugar.Ruta());
        const TrabajoUnico formaAbierta(*otro, Clave());
        EXPECT_EQ(Corre(u"borrar"_s + kClave), 3) << "it is open elsewhere";
    }
    EXPECT_EQ(Cuenta(u"CAB"_s), 1);
    ASSERT_EQ(Corre(u"borrar"_s + kClave), 0) << m_errores.toStdString();
    EXPECT_EQ(Cuenta(u"CAB"_s) + Cuenta(u"DET"_s), 0);
    EXPECT_EQ(Cuenta(u"HCAB"_s), 1) << "the sent copy is another one";
    ASSERT_EQ(Corre(u"borrar --enviada 1"_s + kClave), 0);
    EXPECT_EQ(Cuenta(u"HCAB"_s) + Cuenta(u"HDET"_s), 0);
    EXPECT_EQ(Corre(u"borrar --enviada 1"_s + kClave), 2);
    EXPECT_EQ(Cuenta(u"BITACORA WHERE Suceso = 'ELIMINAR'"_s), 2);
    EXPECT_EQ(Cuenta(u"BITACORA WHERE Suceso = 'ORDEN'"_s), 1);
}

TEST_F(Scripts, AnotherOriginalOfASentMonthIsRefusedBeforeAnythingIsWritten) {
    const QString declarar = u"declarar --efectivo --percepciones "_s + Ejemplo() + kClave;
    ASSERT_EQ(Corre(declarar), 0);
    ASSERT_FALSE(Envia().isEmpty());
    EXPECT_EQ(Corre(u"declarar --efectivo"_s + kClave), 2);
    EXPECT_TRUE(m_errores.contains(u"(copia 1)"_s)) << m_errores.toStdString();
    EXPECT_EQ(Cuenta(u"CAB"_s), 0);
    EXPECT_EQ(Cuenta(u"TMPF518PDET"_s), 150) << "what was at work stays";
    ASSERT_EQ(Corre(declarar + u" --rectifica"_s), 0);
    EXPECT_EQ(Corre(u"declarar --efectivo"_s + kClave), 0) << "the stored one says already that it rectifies";
    ASSERT_EQ(Corre(u"borrar"_s + kClave), 0);
    EXPECT_EQ(Corre(declarar + u" --otro-original"_s), 0);
}

TEST_F(Scripts, ListsThoseOfADeclarantOrAPeriod) {
    for (const QString& periodo : {u"202609"_s, u"202610"_s})
        ASSERT_EQ(Corre(u"declarar --hoy 21/11/2026 --ruc 20990518018 --periodo "_s + periodo), 1) << "nothing to pay";
    const auto cuantas = [this](const QString& filtro) {
        EXPECT_EQ(Corre(u"listar --json "_s + filtro), 0) << m_errores.toStdString();
        return Json()[u"declaraciones"_s].toArray().size();
    };
    EXPECT_EQ(cuantas(u""_s), 2);
    EXPECT_EQ(cuantas(u"--periodo 202610"_s), 1);
    EXPECT_EQ(cuantas(u"--ruc 20990518018"_s), 2);
    EXPECT_EQ(cuantas(u"--ruc 20100000009"_s), 0);
    EXPECT_EQ(cuantas(u"--enviadas --periodo 202610"_s), 0);
}

} // namespace
