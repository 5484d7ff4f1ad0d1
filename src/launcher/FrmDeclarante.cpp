#include "launcher/FrmDeclarante.h"

#include "platform/Notices.h"
#include "ui_FrmDeclarante.h"
#include "values/Text.h"
#include "widgets/Application.h"
#include "widgets/FieldFilters.h"
#include "widgets/FieldKeys.h"
#include "widgets/WidgetHelpers.h"

namespace xa518 {

using namespace Qt::StringLiterals;

FrmDeclarante::FrmDeclarante(Avisos& avisos, const Declarante& inicial, const QStringList& usuarios, Escritura escribe,
                             QWidget* padre)
    : Forma(padre), m_ui(std::make_unique<Ui::FrmDeclarante>()), m_avisos(&avisos), m_escribe(std::move(escribe)) {
    m_ui->setupUi(this);
    SoloDigitos(*m_ui->TxtRuc);
    for (QLineEdit* campo : {m_ui->TxtRuc, m_ui->TxtNombre})
        TextoSinCorte(*campo);
    Muestra(inicial, usuarios);
    connect(m_ui->CmdAceptar, &QPushButton::clicked, this, Protegido([this] { Acepta(); }));
    connect(m_ui->CmdCancelar, &QPushButton::clicked, this, &FrmDeclarante::reject);
    Prepara({m_ui->CmdCancelar});
    SaleConEsc();
}

FrmDeclarante::~FrmDeclarante() = default;

void FrmDeclarante::Muestra(const Declarante& inicial, const QStringList& usuarios) {
    const bool nuevo = inicial.ruc.EstaVacio();
    setWindowTitle(nuevo ? u"Agregar declarante"_s : u"Modificar declarante"_s);
    m_ui->TxtRuc->setText(inicial.ruc.Texto());
    m_ui->TxtRuc->setEnabled(nuevo);
    m_ui->TxtNombre->setText(inicial.nombre);
    m_ui->CmbUsuario->addItems(usuarios);
    m_ui->CmbUsuario->setCurrentText(inicial.usuario);
    (nuevo ? m_ui->TxtRuc : m_ui->TxtNombre)->setFocus();
}

void FrmDeclarante::Acepta() {
    const Declarante declarante{.ruc = Ruc(m_ui->TxtRuc->text()),
                                .nombre = m_ui->TxtNombre->text(),
                                .usuario = m_ui->CmbUsuario->currentText()};
    const VeredictoDeclarante veredicto = m_escribe(declarante);
    if (veredicto) {
        m_guardado = declarante.ruc;
        Termina();
        return;
    }
    m_avisos->Muestra(veredicto.Motivo());
    if (const std::optional<CampoDeclarante> campo = veredicto.ElCampo())
        Enfoca(Control(*campo));
}

QWidget& FrmDeclarante::Control(CampoDeclarante campo) const {
    switch (campo) {
    case CampoDeclarante::Ruc: return *m_ui->TxtRuc;
    case CampoDeclarante::Nombre: return *m_ui->TxtNombre;
    case CampoDeclarante::Usuario: break;
    }
    return *m_ui->CmbUsuario;
}

} // namespace xa518
