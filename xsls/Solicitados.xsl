<?xml version="1.0" encoding="UTF-8"?>
<!-- KORVEL 8 Adquisiciones: material solicitado -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:include href="comun.xsl"/>
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>

  <xsl:template match="/">
    <html>
      <head>
        <title>Reporte de material solicitado</title>
        <xsl:call-template name="estilo"><xsl:with-param name="letra" select="'8pt'"/></xsl:call-template>
      </head>
      <body>
        <xsl:call-template name="encabezado"><xsl:with-param name="titulo" select="'Reporte de material solicitado'"/></xsl:call-template>
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
      <tr><th>Fecha</th><th>Biblioteca y escuela</th><th>Título, autor, editorial, ISBN</th><th>Ejemplares</th></tr>
      <xsl:for-each select="*">
        <tr>
          <td class="dato" width="13%"><xsl:call-template name="fecha"><xsl:with-param name="valor" select="*[translate(local-name(), $may, $min) = 'fecha']"/></xsl:call-template></td>
          <td width="32%"><xsl:call-template name="destino"/></td>
          <td width="41%"><xsl:call-template name="obra"/></td>
          <td class="num" width="14%"><xsl:value-of select="*[translate(local-name(), $may, $min) = 'ejemplares']"/></td>
        </tr>
      </xsl:for-each>
      <xsl:if test="not(*)">
        <tr><td colspan="4">No hay material en este periodo.</td></tr>
      </xsl:if>
    </table>
  </xsl:template>

  <xsl:template name="totales">
    <p class="totales">Títulos: <xsl:value-of select="count(*)"/>. Ejemplares solicitados: <xsl:call-template name="suma"><xsl:with-param name="registros" select="*"/><xsl:with-param name="columna" select="'ejemplares'"/></xsl:call-template></p>
  </xsl:template>
</xsl:stylesheet>
