#include "declaration/PagIdentificacion.h"

#include "ui_PagIdentificacion.h"

#include "declaration/ChosenDeclaration.h"
#include "family/OfferedDeclarants.h"
#include "values/Text.h"
#include "widgets/Application.h"
#include "widgets/FieldFilters.h"
#include "widgets/FieldKeys.h"
#include "widgets/WidgetHelpers.h"

#include <QAbstractItemView>
#include <QKeyEvent>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The item of the list of declarants. Its readers cut the number and the name out of it by position.
QString Item(const DeclaranteOfrecido& declarante) {
    return Recorta(declarante.ruc.Texto().left(Ruc::kLargo)).toString() + QString(7, u' ') + declarante.nombre +
           QString(10, u' ');
}

/// From character 16, which serves a number of 8 characters as well as one of 11.
QString NombreDeItem(const QString& item) {
    return Recorta(Mid(item, 16, 50)).toString();
}

Ruc RucDeItem(const QString& item) {
    return Ruc(item.left(Ruc::kLargo));
}

void AnchoDeTexto(QLineEdit& campo, int caracteres) {
    constexpr int kAire = 20;
    campo.setFixedWidth(campo.fontMetrics().horizontalAdvance(QString(caracteres, u'0')) + kAire);
}

} // namespace

PagIdentificacion::PagIdentificacion(QWidget* padre) : QWidget(padre), m_ui(std::make_unique<Ui::PagIdentificacion>()) {
    m_ui->setupUi(this);
    m_ui->LblSinDeclarantes->hide();
    PonAnchos();
    ConectaCampos();
}

PagIdentificacion::~PagIdentificacion() = default;

void PagIdentificacion::PonAnchos() {
    AnchoDeTexto(*m_ui->TxtNumRuc, 12);
    AnchoDeTexto(*m_ui->MkePeriodo, 8);
    AnchoDeTexto(*m_ui->TxtControl, 12);
    AnchoDeTexto(*m_ui->TxtNumOrdenE_0, 12);
    AnchoDeTexto(*m_ui->TxtNumOrdenE_1, 4);
}

void PagIdentificacion::ConectaCampos() {
    EntrarComoTab(*m_ui->MkePeriodo);
    SinPegar(*m_ui->MkePeriodo, Gesto::ShiftInsert | Gesto::TeclaMenu);
    AlTeclear(*m_ui->MkePeriodo, [this] { Q_EMIT Tocado(); });
    connect(m_ui->MkePeriodo, &QLineEdit::textEdited, this, &PagIdentificacion::Tocado);
    for (QLineEdit* campo : {m_ui->TxtNumOrdenE_0, m_ui->TxtNumOrdenE_1}) {
        EntrarComoTab(*campo);
        SoloNumero(*campo);
        SinPegar(*campo, Gesto::ShiftInsert | Gesto::BotonDerecho);
        connect(campo, &QLineEdit::textChanged, this, &PagIdentificacion::Tocado);
    }
    m_ui->CmbRuc->installEventFilter(this);
    connect(m_ui->CmbRuc, &QComboBox::activated, this, Protegido([this] { EligeDeclarante(); }));
    connect(m_ui->TxtRazon, &QLineEdit::textChanged, this, Protegido([this] { Q_EMIT RazonCambiada(); }));
    connect(m_ui->OptRectifica_0, &QRadioButton::toggled, this, [this](bool elegida) {
        if (elegida)
            Q_EMIT RectificaElegida(false);
    });
    connect(m_ui->OptRectifica_1, &QRadioButton::toggled, this, [this](bool elegida) {
        if (elegida)
            Q_EMIT RectificaElegida(true);
    });
}

void PagIdentificacion::MuestraNueva(const QList<DeclaranteOfrecido>& declarantes, const QString& usuario) {
    m_nueva = true;
    if (declarantes.isEmpty())
        AvisaSinDeclarantes(usuario);
    m_ui->Frame10->hide();
    m_ui->Label1_14->hide();
    m_ui->TxtControl->hide();
    m_ui->TxtNumRuc->setEnabled(false);
    m_ui->TxtNumRuc->hide();
    for (const DeclaranteOfrecido& declarante : declarantes)
        m_ui->CmbRuc->addItem(Item(declarante));
    m_ui->CmbRuc->setCurrentIndex(-1);
    AjustaCombo(*this, *m_ui->CmbRuc);
}

void PagIdentificacion::AvisaSinDeclarantes(const QString& usuario) {
    const QString aviso = u"El usuario %1 no tiene declarantes. Regístrelos en la Consola, ficha Declarantes."_s.arg(
        usuario.isEmpty() ? u"sin nombre"_s : usuario);
    m_ui->LblSinDeclarantes->setText(aviso);
    m_ui->LblSinDeclarantes->show();
    m_ui->CmbRuc->setAccessibleDescription(aviso);
}

void PagIdentificacion::MuestraElegida(const DeclaracionElegida& elegida) {
    m_ui->Frame10->hide();
    m_ui->Label1_14->hide();
    m_ui->TxtControl->hide();
    m_ui->CmbRuc->setEnabled(false);
    m_ui->CmbRuc->hide();
    m_ui->Label1_0->setBuddy(m_ui->TxtNumRuc);
    m_ui->TxtNumRuc->setEnabled(false);
    m_ui->MkePeriodo->setEnabled(false);
    m_ui->TxtNumRuc->setText(elegida.clave.ruc.Texto());
    m_ui->MkePeriodo->setText(elegida.clave.periodo.EnPantalla());
    m_ui->TxtRazon->setText(elegida.nombre);
}

void PagIdentificacion::Retoma(const DeclaracionElegida& elegida, const QString& periodo) {
    QComboBox& lista = *m_ui->CmbRuc;
    m_ui->MkePeriodo->setText(periodo);
    if (elegida.clave.ruc.Texto().isEmpty())
        return;
    for (int fila = 0; fila < lista.count(); ++fila) {
        if (RucDeItem(lista.itemText(fila)) == elegida.clave.ruc)
            lista.setCurrentIndex(fila);
    }
    if (lista.currentIndex() < 0) {
        lista.addItem(Item({.ruc = elegida.clave.ruc, .nombre = elegida.nombre}));
        lista.setCurrentIndex(lista.count() - 1);
    }
    m_ui->TxtRazon->setText(NombreDeItem(lista.currentText()));
    AjustaCombo(*this, lista);
}

void PagIdentificacion::MuestraEnviada(const DeclaracionElegida& elegida) {
    MuestraElegida(elegida);
    m_ui->Frame10->show();
    m_ui->Label1_14->show();
    m_ui->TxtControl->show();
    m_ui->TxtControl->setText(Recorta(elegida.control).toString());
    PonOrden(elegida.norden);
    // A sent copy says nothing of rectification here; without question and options the frame would stand empty.
    m_ui->Label1_11->hide();
    m_ui->OptRectifica_0->hide();
    m_ui->OptRectifica_1->hide();
    m_ui->Frame17->hide();
}

Identificacion PagIdentificacion::Lee() const {
    const Ruc ruc = m_nueva ? RucDeItem(m_ui->CmbRuc->currentText()) : Ruc(m_ui->TxtNumRuc->text());
    return {m_nueva, ruc, m_ui->MkePeriodo->text(), m_ui->MkePeriodo->isEnabled()};
}

QString PagIdentificacion::Nombre() const {
    return m_ui->TxtRazon->text();
}

void PagIdentificacion::EligeDeclarante() {
    const QString nombre = NombreDeItem(m_ui->CmbRuc->currentText());
    m_ui->TxtRazon->setText(nombre);
    AjustaCombo(*this, *m_ui->CmbRuc);
    xa518::Enfoca(*m_ui->MkePeriodo);
    Q_EMIT DeclaranteElegido(nombre);
}

/// The period first: the choice of the declarant checks both.
bool PagIdentificacion::PonClave(const ClaveDeclaracion& clave) {
    for (int fila = 0; fila < m_ui->CmbRuc->count(); ++fila) {
        if (RucDeItem(m_ui->CmbRuc->itemText(fila)) != clave.ruc)
            continue;
        m_ui->MkePeriodo->setText(clave.periodo.EnPantalla());
        m_ui->CmbRuc->setCurrentIndex(fila);
        EligeDeclarante();
        return true;
    }
    return false;
}

void PagIdentificacion::CongelaClave() {
    m_ui->CmbRuc->setEnabled(false);
    m_ui->MkePeriodo->setEnabled(false);
}

void PagIdentificacion::DejaDeCambiar() {
    CongelaClave();
    m_ui->OptRectifica_0->setEnabled(false);
    m_ui->OptRectifica_1->setEnabled(false);
}

Rectificacion PagIdentificacion::Rectifica() const {
    if (m_ui->OptRectifica_1->isChecked())
        return Rectificacion::Si;
    return m_ui->OptRectifica_0->isChecked() ? Rectificacion::No : Rectificacion::SinResponder;
}

void PagIdentificacion::PonRectifica(Rectificacion rectifica) {
    if (rectifica == Rectificacion::No)
        m_ui->OptRectifica_0->setChecked(true);
    else if (rectifica == Rectificacion::Si)
        m_ui->OptRectifica_1->setChecked(true);
}

NumeroDeOrden PagIdentificacion::Orden(const QString& control) const {
    return {control, m_ui->TxtNumOrdenE_0->text(), m_ui->TxtNumOrdenE_1->text()};
}

void PagIdentificacion::PonOrden(const QString& numero) {
    m_ui->TxtNumOrdenE_0->setText(Recorta(numero) == u"0" ? QString() : Recorta(numero).toString());
}

void PagIdentificacion::PonDigitos(const QString& digitos) {
    m_ui->TxtNumOrdenE_1->setText(digitos);
}

void PagIdentificacion::Enfoca(CampoDeclaracion campo) {
    switch (campo) {
    case CampoDeclaracion::Ruc: return xa518::Enfoca(*m_ui->CmbRuc);
    case CampoDeclaracion::Periodo: return xa518::Enfoca(*m_ui->MkePeriodo);
    case CampoDeclaracion::NumeroDeOrden: return xa518::Enfoca(*m_ui->TxtNumOrdenE_0);
    }
}

void PagIdentificacion::EnfocaOrden() {
    if (m_ui->TxtNumOrdenE_0->isVisible() && m_ui->TxtNumOrdenE_0->isEnabled())
        m_ui->TxtNumOrdenE_0->setFocus();
}

void PagIdentificacion::AlDejarPeriodo(std::function<Salida()> manejador) {
    AlSalir(*m_ui->MkePeriodo, std::move(manejador));
}

/// On the closed list a key would choose a declarant at once, and the focus would move on: nobody could go past the
/// first one. So the key opens the list and goes on there.
bool PagIdentificacion::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto != m_ui->CmbRuc || evento->type() != QEvent::KeyPress)
        return QWidget::eventFilter(objeto, evento);
    const auto* tecla = static_cast<QKeyEvent*>(evento);
    const bool escribe = !tecla->text().isEmpty() && tecla->text().front().isPrint();
    const bool mueve = RecorreLista(tecla->key());
    if ((!escribe && !mueve) || tecla->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier))
        return QWidget::eventFilter(objeto, evento);
    m_ui->CmbRuc->showPopup();
    if (escribe)
        m_ui->CmbRuc->view()->keyboardSearch(tecla->text());
    return true;
}

} // namespace xa518
