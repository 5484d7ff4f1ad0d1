#include "declaration/FormFixture.h"

#include <QAbstractItemView>
#include <QTabBar>
#include <QTabWidget>

namespace xa518::prueba {

void ConFormulario::SetUp() {
    m_base.Param(u"044"_s, u"6"_s, Funcion({{1, u"REGISTRO"_s}, {32, u"RUC"_s}, {46, u"11"_s}}), 3);
    m_base.Param(u"044"_s, u"1"_s, Funcion({{1, u"DOCUMENTO"_s}, {32, u"DNI"_s}, {46, u" 8"_s}}), 4);
    m_base.Param(u"004"_s, u"02"_s, u"BANCO DEL VALLE"_s);
    m_base->Ejecuta(u"INSERT INTO ERROR VALUES ('0151','Se registró el número de orden.')"_s);
    m_base->Ejecuta(u"INSERT INTO CONT VALUES (6,?,'COMERCIAL DEL VALLE S.A.C.','ANA',1)"_s, {kRucDeclarante});
    m_base->Ejecuta(u"INSERT INTO CONT VALUES (6,'12345678','BODEGA ANTIGUA','ANA',1)"_s);
    QDir(m_base.Carpeta()).mkdir(u"0518"_s);
    m_proceso.sysPath = m_base.Carpeta() + u'/';
    m_proceso.sysUser = u"ANA"_s;
    m_proceso.baseDatos = Base::Abre(m_base.Ruta());
    m_dialogos.abreCliente = [this](Forma& sobre, const ClientePedido&) {
        if (m_alAgregar)
            m_alAgregar();
        QDialog dialogo;
        QTimer::singleShot(0, &dialogo, &QDialog::reject);
        sobre.AbreModal(dialogo);
    };
}

void ConFormulario::Abre(const std::optional<DeclaracionElegida>& elegida) {
    m_forma.reset(); // one form at a time holds the work tables
    QWidget detras;
    TomaTablas(detras, m_proceso, elegida, [&](const TablasTomadas& tablas) {
        m_forma =
            std::make_unique<Frm518>(EntornoDeclaracion{m_proceso, m_avisos, m_barra, m_dialogos}, tablas, elegida);
    });
    EsperaTrabajos();
    if (m_forma)
        Muestra(*m_forma);
}

void ConFormulario::AbreNueva() {
    Abre();
}

void ConFormulario::AbreRegistrada() {
    Abre(LaRegistrada());
}

void ConFormulario::AbreRetomada() {
    const SinGrabar fila = TablaSinGrabar(*m_base).Lee().value().fila;
    Abre(DeclaracionElegida{.clave = fila.clave, .nombre = u"COMERCIAL DEL VALLE S.A.C."_s, .retomada = fila});
}

DeclaracionElegida ConFormulario::LaRegistrada() {
    return {.clave = {.ruc = Ruc(kRucDeclarante), .periodo = Periodo(2026, 10), .formulario = kNumFormulario},
            .nombre = u"COMERCIAL DEL VALLE S.A.C."_s};
}

void ConFormulario::AbreEnviada(const QString& norden) {
    const QString clave = u"Doc_id_d,tip_doc_d,periodo,Formulario,"_s;
    m_base->Ejecuta(u"INSERT INTO HCAB ("_s + clave + u"estado,rectifica,norden,fec_env,control,correl) SELECT "_s +
                        clave + u"1,rectifica,?,'02/11/2026','00000017','3' FROM CAB"_s,
                    {norden});
    m_base->Ejecuta(u"INSERT INTO HDET ("_s + clave + u"Casilla,i_valor,correl) SELECT "_s + clave +
                    u"Casilla,i_valor,'3' FROM DET"_s);
    m_base->Ejecuta(u"INSERT INTO HF518PCAB ("_s + clave +
                    u"tip_doc_per,num_doc_per,des_razon,mto_imp_p,correl) SELECT "_s + clave +
                    u"tip_doc_per,num_doc_per,des_razon,mto_imp_p,'3' FROM F518PCAB"_s);
    DeclaracionElegida copia = LaRegistrada();
    copia.clave.enviada = true;
    copia.clave.correl = u"3"_s;
    copia.norden = norden;
    copia.control = u"00000017"_s;
    Abre(copia);
}

QString ConFormulario::ConFoco() const {
    return m_forma->focusWidget() ? m_forma->focusWidget()->objectName() : QString();
}

void ConFormulario::EligeDeclarante(int fila) {
    auto& lista = Control<QComboBox>(u"CmbRuc"_s);
    QTest::keyClick(&lista, Qt::Key_Down); // opens it
    QTest::keyClick(lista.view(), Qt::Key_Home);
    for (int i = 0; i < fila; ++i)
        QTest::keyClick(lista.view(), Qt::Key_Down);
    QTest::keyClick(lista.view(), Qt::Key_Return);
}

void ConFormulario::Teclea(const QString& campo, const QString& texto) {
    Control<>(campo).setFocus();
    QTest::keyClick(&Control<>(campo), Qt::Key_Home);
    QTest::keyClicks(&Control<>(campo), texto);
}

void ConFormulario::VaAPestania(int indice) {
    QTabBar* fichas = Control<QTabWidget>(u"SSTab1"_s).tabBar();
    QTest::mouseClick(fichas, Qt::LeftButton, {}, fichas->tabRect(indice).center());
}

void ConFormulario::Identifica() {
    EligeDeclarante(1);
    Teclea(u"MkePeriodo"_s, u"102026"_s);
}

void ConFormulario::Paga(const QString& monto) {
    VaAPestania(2);
    Teclea(u"TxtValor_410"_s, monto);
    Pulsa(u"OptEfectivo"_s);
}

void ConFormulario::AgregaCliente(int tipo, const QString& numero, const QString& percepcion) {
    m_alAgregar = [=, this] {
        QMap<QString, QVariant> fila = {{u"tip_doc_per"_s, tipo},
                                        {u"num_doc_per"_s, numero},
                                        {u"mto_base_p"_s, u"1000.00"_s},
                                        {u"mto_imp_p"_s, percepcion}};
        m_base.Agrega(u"TMPF518PCAB"_s, fila);
        fila.insert(u"tip_cp"_s, u""_s);
        m_base.Agrega(u"TMPF518PDET"_s, fila);
    };
    Pulsa(u"CmdOpciones_0"_s);
    Muestra(*m_forma);
}

void ConFormulario::GrabaUna() {
    AbreNueva();
    Identifica();
    VaAPestania(1);
    AgregaCliente(6, u"20500000007"_s, u"1000.00"_s);
    Paga(u"1000"_s);
    m_avisos.Espera(u"Toda la información de la declaración fue grabada satisfactoriamente."_s);
    Pulsa(u"CmdGrabar"_s);
    m_forma.reset();
}

} // namespace xa518::prueba
