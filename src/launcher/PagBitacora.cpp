#include "launcher/PagBitacora.h"

#include "launcher/Session.h"
#include "platform/Notices.h"
#include "ui_PagBitacora.h"
#include "values/Text.h"
#include "widgets/Application.h"

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// Nobody reads further back on a screen: the console prints the whole log.
constexpr int kTope = 1000;
constexpr qsizetype kEnUnaCelda = 90;

/// The whole stands below the list.
QString Abreviado(const QString& texto) {
    return texto.size() <= kEnUnaCelda ? texto : texto.first(kEnUnaCelda) + u'…';
}

} // namespace

PagBitacora::PagBitacora(const EntornoPagina& entorno, QWidget* padre)
    : Pagina(entorno, padre), m_ui(std::make_unique<Ui::PagBitacora>()) {
    m_ui->setupUi(this);
    setFocusProxy(m_ui->CmbSuceso);
    m_ui->CmbSuceso->addItem(u"(todos)"_s, QString());
    for (const Suceso suceso : LosSucesos())
        m_ui->CmbSuceso->addItem(TextoDeSuceso(CodigoDe(suceso)), CodigoDe(suceso));
    m_ui->GrdBitacora->PonColumnas(
        {u"Momento"_s, u"Usuario"_s, u"Equipo"_s, u"Suceso"_s, u"RUC"_s, u"Período"_s, u"Copia"_s, u"Qué cambió"_s});
    connect(m_ui->GrdBitacora, &TablaFilas::Cambia, this, &PagBitacora::MuestraDetalle);
    connect(m_ui->CmbSuceso, &QComboBox::currentIndexChanged, this, Protegido([this] { Filtra(); }));
    for (QLineEdit* campo : {m_ui->TxtRuc, m_ui->TxtUsuario})
        connect(campo, &QLineEdit::textEdited, this, Protegido([this] { Filtra(); }));
}

PagBitacora::~PagBitacora() = default;

FiltroDeBitacora PagBitacora::Filtro() const {
    return {.ruc = Recorta(m_ui->TxtRuc->text()).toString(),
            .suceso = m_ui->CmbSuceso->currentData().toString(),
            .usuario = Recorta(m_ui->TxtUsuario->text()).toString()};
}

void PagBitacora::Carga(Base& base) {
    const Bitacora bitacora(base);
    m_lista = bitacora.Lista(Filtro(), kTope);
    QStringList marcas;
    for (const Asiento& asiento : m_lista)
        marcas.append(asiento.marca);
    m_ui->GrdBitacora->Llena({marcas, [this](qsizetype fila) { return Celdas(m_lista.at(fila)); }});
    const bool hayMas = m_lista.size() == kTope;
    m_ui->LblBitacora->setText(
        hayMas ? u"Últimos cambios: %1. Los anteriores se leen con «consola --bitacora»."_s.arg(m_lista.size())
               : u"Cambios anotados: %1"_s.arg(m_lista.size()));
    MuestraDetalle();
}

QStringList PagBitacora::Celdas(const Asiento& asiento) {
    return {asiento.MomentoMostrado(),
            asiento.usuario,
            asiento.equipo,
            TextoDeSuceso(asiento.suceso),
            asiento.ruc,
            Periodo::DeTabla(asiento.periodo).value_or(Periodo()).EnPantalla(),
            asiento.correl,
            Abreviado(asiento.Diferencias())};
}

/// This list alone is read anew, and not those of the other pages.
void PagBitacora::Filtra() {
    try {
        Carga(*LaSesion().Abre());
    } catch (const Error& error) {
        Cuenta(error);
    }
}

void PagBitacora::MuestraDetalle() {
    const int fila = m_ui->GrdBitacora->Fila();
    m_ui->TxtDetalle->setPlainText(fila < 0 ? QString() : m_lista.at(fila).Cambios().join(u'\n'));
}

} // namespace xa518
