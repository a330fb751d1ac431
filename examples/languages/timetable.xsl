<?xml version="1.0" encoding="UTF-8"?>
<?xml-stylesheet type="text/css" href="timetable.css"?>
<!DOCTYPE xsl:stylesheet [
  <!ENTITY nbsp "&#160;">
  <!ENTITY company 'Valley Railway'>
  <!ELEMENT train (stop+)>
  <!ATTLIST train number CDATA #REQUIRED>
]>
<!-- Makes a page with a small drawing out of the timetable of a railway.
     Run it with:  xsltproc timetable.xsl timetable.xml > timetable.html
     A comment may hold <tags>, "quotes" and &entities;. -->
<xsl:stylesheet version="1.0"
    xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
    xmlns:svg="http://www.w3.org/2000/svg"
    exclude-result-prefixes="svg">

  <xsl:output method="html" encoding="UTF-8" indent="yes"/>
  <xsl:strip-space elements="*"/>
  <xsl:param name="day" select="'monday'"/>
  <xsl:variable name="limit" select="5"/>
  <xsl:key name="by-station" match="stop" use="@station"/>

  <xsl:template match="/">
    <html lang="en">
      <head>
        <title>&company; on <xsl:value-of select="$day"/></title>
        <style type="text/css"><![CDATA[
          td > b { color: "red"; }   /* <raw> & text */
        ]]></style>
      </head>
      <body onload='start("page")'>
        <h1>Trains &amp; stops</h1>
        <xsl:choose>
          <xsl:when test="count(//train) &gt; $limit and not(//train[@late='yes'])">
            <p>Many trains, none late.</p>
          </xsl:when>
          <xsl:otherwise>
            <p class="">It's "quiet" today: 1 &lt; 2.</p>
          </xsl:otherwise>
        </xsl:choose>
        <table border="1">
          <xsl:apply-templates select="//train[@day = $day]">
            <xsl:sort select="@number" data-type="number" order="ascending"/>
          </xsl:apply-templates>
        </table>
        <xsl:call-template name="drawing">
          <xsl:with-param name="width" select="120"/>
        </xsl:call-template>
      </body>
    </html>
  </xsl:template>

  <!-- One train is one row -->
  <xsl:template match="train">
    <tr>
      <td><b><xsl:value-of select="@number"/></b></td>
      <xsl:for-each select="stop">
        <td title="{@station} at {time}">
          <xsl:if test="position() = last()">
            <xsl:attribute name="class">last</xsl:attribute>
          </xsl:if>
          <xsl:value-of select="concat(substring(@station, 1, 3), '&nbsp;', time)"/>
        </td>
      </xsl:for-each>
    </tr>
  </xsl:template>

  <xsl:template name="drawing">
    <xsl:param name="width" select="100"/>
    <svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 120 40" width="{$width}">
      <defs>
        <linearGradient id="sky" x1="0" y1="0" x2="0" y2="1">
          <stop offset="0" stop-color="#9cf"/>
          <stop offset="1" stop-color="white"/>
        </linearGradient>
      </defs>
      <rect x="0" y="0" width="120" height="40" fill="url(#sky)"/>
      <path d="M 10 30 L 40 10 Z" fill="none" stroke="#333" stroke-width="1.5"/>
      <g transform="translate(60, 20) rotate(-5)">
        <circle cx="0" cy="0" r="4"/>
        <text x="6" y="2" font-size="6" text-anchor="start">Valley</text>
      </g>
    </svg>
    <unknown:element xmlns:unknown="urn:example" note=''>its end is drawn</unknown:element>
  </xsl:template>
</xsl:stylesheet>
