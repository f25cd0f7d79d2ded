<?xml version="1.0" encoding="UTF-8"?>
<!-- KORVEL 8 Adquisiciones: reporte general, columnas tomadas del documento -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:include href="comun.xsl"/>
  <xsl:output method="html" encoding="UTF-8" indent="yes"/>

  <xsl:template match="/">
    <html>
      <head>
        <title>Reporte de material</title>
        <xsl:call-template name="estilo"/>
      </head>
      <body>
        <xsl:call-template name="encabezado"><xsl:with-param name="titulo" select="'Reporte de material'"/></xsl:call-template>
        <xsl:for-each select="/*">
          <table width="100%">
            <tr>
              <xsl:for-each select="*[1]/*"><th><xsl:value-of select="local-name()"/></th></xsl:for-each>
            </tr>
            <xsl:for-each select="*">
              <tr>
                <xsl:for-each select="*"><xsl:apply-templates select="." mode="celda"/></xsl:for-each>
              </tr>
            </xsl:for-each>
            <xsl:if test="not(*)">
              <tr><td>No hay material en este periodo.</td></tr>
            </xsl:if>
          </table>
          <p class="totales">Registros: <xsl:value-of select="count(*)"/>
            <xsl:if test="@NumTitulos">. Títulos: <xsl:value-of select="@NumTitulos"/></xsl:if></p>
        </xsl:for-each>
      </body>
    </html>
  </xsl:template>

  <!-- A cell by its column: libraries and schools by name, dates and money in the report's forms. -->
  <xsl:template match="*" mode="celda">
    <xsl:variable name="c" select="translate(local-name(), $may, $min)"/>
    <xsl:choose>
      <xsl:when test="$c = 'nobiblioteca' or $c = 'noescuela'">
        <td><xsl:call-template name="nombre">
          <xsl:with-param name="tipo" select="substring-after($c, 'no')"/>
          <xsl:with-param name="numero" select="."/>
        </xsl:call-template></td>
      </xsl:when>
      <xsl:when test="$c = 'fecha' or starts-with($c, 'fechade')">
        <td class="dato"><xsl:call-template name="fecha"><xsl:with-param name="valor" select="."/></xsl:call-template></td>
      </xsl:when>
      <xsl:when test="$c = 'costo'">
        <td class="num"><xsl:call-template name="dinero"><xsl:with-param name="valor" select="."/></xsl:call-template></td>
      </xsl:when>
      <xsl:otherwise><td><xsl:value-of select="."/></td></xsl:otherwise>
    </xsl:choose>
  </xsl:template>
</xsl:stylesheet>
