#pragma once
// "Listado de libros pedidos": the order document for the requests marked on Ped1 (their numbers in
// NavValor), saved, printed, and only here marked as ordered.
#include "core/ui/Plataforma.h"

#include <QDialog>
#include <memory>

class QPushButton;
namespace globales { struct ConsultaDatos; }

class Ped1_Repor : public QDialog {
    Q_OBJECT
public:
    explicit Ped1_Repor(QWidget* padre = nullptr);
    ~Ped1_Repor() override;

    // In spite of its name, the view that shows the document.
    std::unique_ptr<ui::VistaHtml> ListView1;
    QPushButton* Command1;              // "Marcar como pedidos"
    QPushButton* Command2;              // "Guardar"
    QPushButton* Command4;              // "Imprimir"
    QPushButton* Command5;              // "Configurar"
    QPushButton* Command3;              // "&Regresar"
    ui::DialogoArchivo CD1;             // the save dialog; keeps its file name and type between uses

    // True once the requests were marked as ordered.
    bool Marcado = false;
    QString DocumentoXml;
    QString DocumentoHtml;

    void Form_Load();
    // The order document's query for a comma list of request numbers, into the fields of `consulta` it uses.
    static void PreparaConsulta(globales::ConsultaDatos& consulta, const QString& solicitudes);
    // Asked before the screen closes; true cancels the closing.
    void Form_QueryUnload(bool& Cancel);
    void Command1_Click();              // Marcar como pedidos
    void Command2_Click();              // Guardar
    void Command3_Click();              // Regresar
    void Command4_Click();              // Imprimir
    void Command5_Click();              // Configurar

protected:
    void closeEvent(QCloseEvent* e) override;

public slots:
    // Escape closes the screen the same way as its close box.
    void reject() override;
};
