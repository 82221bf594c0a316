// Markup of strangers on pages: what is let through, and in which form nothing gets through.
#include "pages/markup.h"

#include <gtest/gtest.h>

#include "text/text.h"

namespace brindlemoor {
namespace {

using namespace std::string_view_literals;

struct Row {
  std::string_view Text;
  std::string_view Page;
};

void ExpectCleaned(std::string_view text, std::string_view page) {
  EXPECT_EQ(CleanMarkup(std::string(text)), page) << text;
  EXPECT_EQ(CleanMarkup(std::string(page)), page) << "twice: " << text;
}

TEST(MarkupTest, WhatIsCleanStaysByteForByte) {
  for (const std::string_view text : {
           "",
           "plain & simple &amp; &quot 5 > 3",
           "a < b, 5 <3 <=> <\"x\" <\r\n<$ <#",
           "<b>x</b><I>x</I><font color=red size=+2>x</font><FONT COLOR='#ff0000' FACE=\"A B\">",
           "<font color = \"#FFFFFF\" >x</font ><br><br/><BR /><hr width=50% noshade>",
           "<td width = 80 bgcolor = 202020 valign=top><center>one<td></tr></table></center>",
           "<table width=100%><tr><td bgcolor=#0>x",
           "<table align=center border='1' cellpadding=3 cellspacing=0><caption>x</caption>",
           "<font size=+1 color=>badge</font><td bgcolor=><font color = >",
           "<a href=\"CARD-2147483648\"><img  align = left  border = \"0\" src=\"\"></img></a>",
           "<a href=CARDRulesCard>x</a><a href=\"MENUACTION:-5:10\">x</a><a href=\"GAME:1:2\">x",
           "<a href=\"HELP:Two Words & more.html\">x</a>",
           "<img src=\"file:///home/a b/x;y:z.png\" align=default></img><img src=\"file://\">",
           "<img src=art/x.png alt=\"a > b &lt; c\" width=10 height=10 hspace=5>",
           "<img src=\"/home/a/%C3%BC%22&.png\"><img src=x.png/>",
           "<p>\xC3\xA9</p><h1 align=center>x</h1><ul><li value=3>x</ul><pre>\tx\n</pre>",
       }) {
    ExpectCleaned(text, text);
  }
}

// What a browser takes for more than text and pictures, or mends in a way of its own.
constexpr Row kAttacks[] = {
    // Tags that are not let through; what is no text goes with them.
    {"a<script>alert(1)</script>b", "ab"},
    {"a<ScRiPt\tsrc=x>1 < 2</sCrIpT >b", "ab"},
    {"a<style>@import url(x);p{background:url(y)}</style>b", "ab"},
    {"<script>endless <b>x</b>", "endless <b>x</b>"},
    {"<style></styles></style\n>x", "x"},
    {"a<svg onload=alert(1)><use href=#x><animate attributeName=x></svg>b", "ab"},
    {"<svg><script>1</script><text>x</text></svg>y", "y"},
    {"<math><mi xlink:href=x>y</mi></math>", "y"},
    {"<iframe srcdoc='&lt;script>'>x</iframe><frameset><frame src=x></frameset>", ""},
    {"<iframe srcdoc=\"<script>1</script>\">x</iframe>", "&lt;iframe srcdoc=\"\">x"},
    {"<object data=x>y</object><embed src=x><applet code=x>z</applet>", "yz"},
    {"<form action=x>a<input name=b><select><option>c</select><button>d</button></form>", "ad"},
    {"<textarea><b>x</textarea><title>x</title><template><b>x</template><noscript>x</noscript>",
     ""},
    {"<base href=http://a.invalid/><BASE\ntarget=_top>x</base>", "x"},
    {"<meta http-equiv=refresh content='0;url=x'><link rel=stylesheet href=x><html><head><body "
     "a=b>",
     ""},
    {"<marquee loop=9>x</marquee><blink>y</blink><xmp>z</xmp><plaintext>w", "xyzw"},
    {"<details open ontoggle=x>y</details><dialog open>z</dialog>", "yz"},
    {"<video src=x poster=y autoplay>z</video><audio src=x></audio><canvas>w</canvas>", "zw"},
    {"<b-c>x</b-c><a:b>y</a:b><custom is=z>z", "xyz"},
    {"<basefont color=red><bgsound src=x><layer src=x><ilayer src=y><keygen><isindex>", ""},
    {"<map name=m><area href=x></map><img src=a.png usemap=#m>", "<img src=a.png>"},
    // Comments and what looks like them.
    {"a<!-- <b>x</b> --><i>b</i>", "a<i>b</i>"},
    {"<!--><img src=x onerror=y>--><!---->z", "<img src=x>-->z"},
    {"<!-- a --!><script>b</script>c", "c"},
    {"a<!doctype html><?xml version='1.0'?><![CDATA[<script>x</script>]]>b</>c</ p>d", "abcd"},
    {"<!-- no end <b>x</b>", "&lt;!-- no end <b>x</b>"},
    {"<![CDATA[ no end <script>x</script>", "&lt;![CDATA[ no end "},
    {"<!x <!--y--> >", "&lt;!x  >"},
    // Attributes that are not let through.
    {"<b onclick=x>a</b><p style='position:fixed'>b</p onclick=y>", "<b>a</b><p>b</p>"},
    {"<td width=5 STYLE=\"background:url(x)\" background=x bgcolor=red>",
     "<td width=5 bgcolor=red>"},
    {"<img src=a.png onload=x onerror='y' srcset=\"http://a.invalid 2x\" alt='z'>",
     "<img src=a.png alt='z'>"},
    {"<img src=a.png src=http://a.invalid/>", "<img src=a.png>"},
    {"<font color=red id=x class=y data-z=w size=3 tabindex=0 autofocus/>",
     "<font color=red size=3>"},
    {"<br clear=all xmlns=x>", "<br clear=all>"},
    {"<font color= size=3>x</font>", "x</font>"},
    // Addresses.
    {"<img src=http://a.invalid/x.png><img src=//a.invalid/x.png><img src=data:image/png,x>", ""},
    {"<img src=\" //a.invalid/x\"><img src='\\\\a.invalid\\x'><img src=file://a.invalid/x.png>",
     ""},
    {"<img src=file:////a.invalid/x.png><img src=FILE:///x.png><img src=file:x.png>", ""},
    {"<img src=&#104;ttp://a.invalid/><img src=\"java\tscript:x\"><img src=java&Tab;script:x>", ""},
    {"<img src=\"h\nttp://a.invalid/\"><img src=\"/\n/a.invalid\"><img alt=x>", ""},
    {"<a href=javascript:x>a</a><a href=http://a.invalid>b</a><a href=x.html>c</a><a name=d>d</a>",
     "a</a>b</a>c</a>d</a>"},
    {"<a href=CARD1 target=_top ping=x>a</a><a href=' CARD1'>b</a><a href=&#67;ARD1>c</a>",
     "<a href=CARD1>a</a>b</a>c</a>"},
    {"<a href=CARD1x>a<a href=CARD>b<a href=GAME:1>c<a href=MENUACTION:1:2:3>d<a href=GAME:1:2/>",
     "abcd"},
    {"<a href=\"CARD1\" href=\"javascript:x\">a", "<a href=\"CARD1\">a"},
    // Forms that browsers mend.
    {"<a/href=CARD1>x<img/src=x.png/onerror=y>z<b/onclick=x>w", "xzw"},
    {"<b\"onclick=x>a<b'>c<img src=\"a.png\"onerror=x>d<img src='a.png'onerror=x>e", "acde"},
    {"<b onclick=x", "&lt;b onclick=x"},
    {"<b onclick=x <i>y</i>", "&lt;b onclick=x <i>y</i>"},
    {"<font color=\"red>x</font> <b title=\"y\">z", "x</font> <b>z"},
    {"<img src=\"x.png>a <a href=\"CARD1\">b</a>", "a <a href=\"CARD1\">b</a>"},
    {"<img src=`x.png onerror=y`>a<img src=x\"y>b<font color=a=b>c<b =x>d", "abcd"},
    {"<<script>b>x", "&lt;b>x"},
    {"<<b>x", "&lt;<b>x"},
    {"<<!-- -->img src=x onerror=y>", "&lt;img src=x onerror=y>"},
    {"<</x>script>1</script>", "&lt;script>1"},
    {"<scr<script>ipt>alert(1)</scr</script>ipt>", "&lt;script>"},
    {"<scr<b></b>ipt>x", "&lt;scr<b></b>ipt>x"},
    {"< script>x</ script>< /b>", "< script>x< /b>"},
    {"<\xC3\xA9><\x80script>", "&lt;\xC3\xA9>&lt;\x80script>"},
    {"<b>x<", "<b>x&lt;"},
    {"</", "&lt;/"},
    {"<!", "&lt;!"},
    // Control characters, which one reader drops and another keeps.
    {"<scr\0ipt>x</script>y<\0b>z<b\0 onclick=x>"sv, "y<b>z<b>"},
    {"<b\x0Bonclick=x>a<img\x0Csrc=x.png>b<i\x7F>c", "ab<i>c"},
    {"<img alt=\"\x1B$B\" src=x.png>\x1B(B\" onerror=y>",
     "<img alt=\"$B\" src=x.png>(B\" onerror=y>"},
    // Readings that change when a browser writes a page out and reads it again.
    {"<math><mtext><table><mglyph><style><!--</style><img title=\"--&gt;&lt;img src=1 "
     "onerror=x>\">",
     "<table>"},
    {"<svg></p><style><a id=\"</style><img src=1 onerror=x>\">", "</p><img src=1>\">"},
    {"<form><math><mtext></form><form><mglyph><style></math><img src onerror=x>", "<img src>"},
    {"<noscript><p title=\"</noscript><img src=x onerror=y>\">", "<img src=x>\">"},
    {"<select><template><style><!--</style><a rel=\"--></style></template></select><b a=\">\">x",
     "<b>x"},
    {"<table><td><p id=\"</p><img src=x onerror=y>\">z</p>",
     "<table><td>&lt;p id=\"</p><img src=x>\">z</p>"},
    {"<a href=\"CARD1\" title='\"><script>x</script>'>", "'>"},
};

TEST(MarkupTest, NothingElseGetsThrough) {
  for (const Row& row : kAttacks) ExpectCleaned(row.Text, row.Page);
}

/// One text can be anywhere in another one, and at every end of a page.
TEST(MarkupTest, AttacksInAndBesideOneAnotherAreCleanToo) {
  for (const Row& outer : kAttacks) {
    for (const Row& inner : kAttacks) {
      for (const std::size_t at : {outer.Text.size() / 3, outer.Text.size() / 2}) {
        const std::string text =
            Joined(outer.Text.substr(0, at), inner.Text, outer.Text.substr(at));
        const std::string page = CleanMarkup(text);
        EXPECT_EQ(CleanMarkup(page), page) << text;
      }
    }
  }
}

/// Pages may be long: what is not closed is not looked for again and again.
TEST(MarkupTest, LongPagesOfUnclosedMarkupAreReadOnce) {
  for (const char* piece : {"<script>", "<!--", "<b a=\"<b a='", "<", "</script", "<b x x", "<img ",
                            "<svg><![CDATA[", "<b a=\"<b a=' c=\"", "<i\""}) {
    std::string page;
    while (page.size() < (256U << 10U)) page += piece;
    const std::string cleaned = CleanMarkup(std::move(page));
    EXPECT_EQ(CleanMarkup(cleaned), cleaned) << piece;
  }
}

}  // namespace
}  // namespace brindlemoor
