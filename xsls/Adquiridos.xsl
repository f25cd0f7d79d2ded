<?xml version="1.0" encoding="UTF-8"?>
<!-- KORVEL 8 Adquisiciones: material adquirido -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:include href="comun.xsl"/>
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>

  <xsl:template match="/">
    <html>
      <head>
        <title>Reporte de material adquirido</title>
        <xsl:call-template name="estilo"><xsl:with-param name="letra" select="'7.5pt'"/></xsl:call-template>
      </head>
      <body>
        <xsl:call-template name="encabezado"><xsl:with-param name="titulo" select="'Reporte de material adquirido'"/></xsl:call-template>
        <xsl:for-each select="/*">
          <xsl:call-template name="tabla"/>
          <xsl:call-template name="totales"/>
        </xsl:for-each>
      </body>
    </html>
  </xsl:template>

  <!-- The records of one report: a header row, one row each, and a notice when there are none. -->
  <xsl:template name="tabla">
    <table width="100%">
      <tr><th>No. adquisición</th><th>Título, autor, editorial, edición, ISBN</th><th>Biblioteca y escuela</th><th>Recepción y factura</th><th>Ejemplares recibidos</th><th>Costo</th></tr>
      <xsl:for-each select="*">
        <tr>
          <td class="dato" width="13%"><xsl:value-of select="*[translate(local-name(), $may, $min) = 'noadquisicion']"/></td>
          <td width="33%"><xsl:call-template name="obra"/></td>
          <td width="19%"><xsl:call-template name="destino"/></td>
          <td class="dato" width="12%"><xsl:call-template name="recepcion"/></td>
          <td class="num" width="12%"><xsl:value-of select="*[translate(local-name(), $may, $min) = 'ejemplaresrecibidos']"/></td>
          <td class="num" width="11%"><xsl:call-template name="dinero"><xsl:with-param name="valor" select="*[translate(local-name(), $may, $min) = 'costo']"/></xsl:call-template></td>
        </tr>
      </xsl:for-each>
      <xsl:if test="not(*)">
        <tr><td colspan="6">No hay material en este periodo.</td></tr>
      </xsl:if>
    </table>
  </xsl:template>

  <xsl:template name="totales">
    <p class="totales">Ejemplares adquiridos (números de adquisición): <xsl:value-of select="count(*)"/><xsl:if test="@NumTitulos">. Títulos: <xsl:value-of select="@NumTitulos"/></xsl:if></p>
  </xsl:template>
</xsl:stylesheet>
