#include "reports/Dato.h"

#include "core/Datos.h"
#include "core/Globales.h"
#include "core/ui/Plataforma.h"
#include "core/vb/Conversion.h"
#include "core/vb/Formato.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString origen = QStringLiteral("Dato");
const QString cuatroBlancos = QStringLiteral("    ");
const QChar finLinea = u'\n';

// A date read as text, in the program's "dd/mmm/yyyy"; a text that is no date stays as it is.
QString FormatoFecha(const QString& texto) {
    if (vb::IsDate(vb::Variant(texto)))
        return vb::Format(vb::Variant(vb::CDate(vb::Variant(texto))), QStringLiteral("dd/mmm/yyyy"));
    return texto;
}

}  // namespace

Dato::Dato(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("Dato"));
    setWindowTitle(QStringLiteral("Detalles del material seleccionado"));

    Label1 = new QLabel(this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    Label1->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Label1->setTextFormat(Qt::PlainText);
    Label1->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Label1->setMinimumWidth(420);
    Command1 = new QPushButton(QStringLiteral("Cerrar"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setDefault(true);

    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(Command1);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Label1, 1);
    todo->addLayout(botones);

    ui::Conecta(Command1, &QPushButton::clicked, this, origen, &Dato::Command1_Click);
}

Dato::~Dato() = default;

void Dato::Form_Load() {
    const bool solicitud = globales::NavTabla.startsWith(QStringLiteral("[Solicitudes"), Qt::CaseInsensitive);
    const QString campoDueno = solicitud ? QStringLiteral("NoSolicitud") : QStringLiteral("NoDonacion");
    globales::ConsultaDatos& c = globales::Consulta;
    c.Orden.clear();

    // The request or donation that owns the title.
    c.Campos = campoDueno;
    c.Tabla = globales::NavTabla + QStringLiteral(" Libros]");
    c.Clave = globales::NavCampo;
    c.Valor = globales::NavValor.text();
    const QString numero = Datos::ConsultaCampos(c);

    c.Campos = QStringLiteral("*");
    c.Tabla = globales::NavTabla + QStringLiteral(" General]");
    c.Clave = campoDueno;
    c.Valor = numero;
    QString cabeza = Datos::ConsultaCampos(c);

    c.Campos = QStringLiteral("NoAdquisicion");
    c.Tabla = QStringLiteral("[Adquisiciones Numadqui]");
    c.Clave = globales::NavCampo;
    c.Valor = globales::NavValor.text() + (solicitud ? QStringLiteral(" AND [Solicitud o Donacion]='S'")
                                                     : QStringLiteral(" AND [Solicitud o Donacion]='D'"));
    QString numeros = Datos::ConsultaCampos(c);

    if (numeros.isEmpty()) {
        Label1->setText(QStringLiteral("No tiene números de adquisición asociados"));
        return;
    }
    QString texto;
    if (solicitud) {
        texto = QStringLiteral("Núm. solicitud: ") + Datos::TomaCampo(cabeza);
        texto += cuatroBlancos + FormatoFecha(Datos::TomaCampo(cabeza)) + finLinea;
        texto += QStringLiteral("Solicitante: ") + Datos::TomaCampo(cabeza) + finLinea;
        texto += QStringLiteral("Escuela: ") + Datos::TomaCampo(cabeza);
        texto += cuatroBlancos + QStringLiteral("Biblioteca: ") + Datos::TomaCampo(cabeza) + finLinea;
    } else {
        texto = QStringLiteral("Núm. donación: ") + Datos::TomaCampo(cabeza);
        texto += cuatroBlancos + QStringLiteral("Fecha: ") + FormatoFecha(Datos::TomaCampo(cabeza)) + finLinea;
        texto += QStringLiteral("Núm. institución: ") + Datos::TomaCampo(cabeza);
        texto += cuatroBlancos + QStringLiteral("Biblioteca: ") + Datos::TomaCampo(cabeza) + finLinea;
    }
    texto += QStringLiteral("Núm. adquisición: ");
    // TomaCampo leaves the last piece in place, so the loop ends on the piece that had no "|" after it.
    for (bool ultimo = false; !ultimo;) {
        ultimo = !numeros.contains(u'|');
        texto += u'(' + Datos::TomaCampo(numeros) + QStringLiteral(") ");
    }
    Label1->setText(texto);
}

void Dato::Command1_Click() { close(); }
