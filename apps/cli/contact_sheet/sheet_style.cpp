#include "apps/cli/contact_sheet/sheet_style.h"

namespace photocli
{

// --n is the number of photos of a group: groups of few photos stand side by side.
const char *const sheetStyle = R"css(
:root {
  color-scheme: light dark;
  --page: #f3f2ef; --card: #fff; --mat: #efeeea; --ink: #1d1d1f; --dim: #67656a; --line: #d9d6cf;
  --mark: #a8630a; --link: #2257a8; --shadow: 0 1px 3px rgb(0 0 0 / .28);
  --tile: 11rem; --gap: .8rem;
}
@media (prefers-color-scheme: dark) {
  :root {
    --page: #17171a; --card: #212125; --mat: #101012; --ink: #ececef; --dim: #a3a2aa; --line: #36363c;
    --mark: #f2b45c; --link: #8ab6f5; --shadow: 0 1px 4px rgb(0 0 0 / .7);
  }
}
* { box-sizing: border-box; }
body { margin: 0; background: var(--page); color: var(--ink); font: .9375rem/1.4 system-ui, sans-serif; }
header, main, footer { max-width: 97.4rem; margin: 0 auto; padding: 0 1.5rem; }
header { padding-top: 2rem; }
h1 { margin: 0; font-size: 1.9rem; line-height: 1.2; letter-spacing: -.01em; overflow-wrap: anywhere; }
header p, footer p { margin: .35rem 0 0; color: var(--dim); }
nav ul { display: flex; flex-wrap: wrap; gap: .4rem; margin: 1.1rem 0 0; padding: 0; list-style: none; }
nav a {
  display: block; padding: .2rem .7rem; border: 1px solid var(--line); border-radius: 1rem;
  background: var(--card); color: var(--ink); text-decoration: none;
}
nav a:hover, nav a:focus-visible { border-color: var(--link); color: var(--link); }
.count { color: var(--dim); font-weight: 400; font-variant-numeric: tabular-nums; }
details { margin-top: 1.8rem; padding-top: .9rem; border-top: 1px solid var(--line); }
summary { cursor: pointer; list-style-position: inside; }
h2, h3 { margin: 0; line-height: 1.3; overflow-wrap: anywhere; }
h2 { display: inline; font-size: 1.3rem; }
h3 { padding: 1.1rem 0 .5rem; font-size: 1rem; }
.groups { display: flex; flex-wrap: wrap; column-gap: var(--gap); }
.group { width: calc(var(--n) * (var(--tile) + var(--gap)) - var(--gap)); max-width: 100%; }
h3 + .tiles { margin-top: 0; }
.one h3 { overflow: hidden; font-size: .8125rem; text-overflow: ellipsis; white-space: nowrap; }
.tiles {
  display: grid; grid-template-columns: repeat(auto-fill, min(var(--tile), 100%)); gap: var(--gap);
  margin: .9rem 0 0; padding: 0; list-style: none;
}
.tiles.many { content-visibility: auto; contain-intrinsic-size: auto 60rem; }
.tiles li { min-width: 0; }
figure { margin: 0; padding: .4rem .4rem .5rem; border-radius: .5rem; background: var(--card); height: 100%; }
.mat {
  position: relative; display: grid; place-items: center; aspect-ratio: 1; overflow: hidden; border-radius: .3rem;
  background: var(--mat); padding: 6%;
}
.mat svg { display: block; max-width: 100%; max-height: 100%; border-radius: 2px; box-shadow: var(--shadow); }
.mat .w { width: 100%; }
.mat .h { height: 100%; }
.mat .none { width: 45%; box-shadow: none; color: var(--dim); opacity: .55; }
.badge {
  position: absolute; right: .3rem; bottom: .3rem; padding: 0 .4rem; border-radius: .6rem;
  background: rgb(0 0 0 / .66); color: #fff; font-size: .75rem; font-variant-numeric: tabular-nums;
}
figcaption { padding: .4rem .15rem 0; font-size: .8125rem; line-height: 1.35; }
figcaption span { display: block; overflow: hidden; text-overflow: ellipsis; white-space: nowrap; }
.name { font-weight: 600; }
.when { color: var(--dim); font-variant-numeric: tabular-nums; }
figcaption .marks { color: var(--mark); white-space: normal; }
footer { margin-top: 2.5rem; padding-bottom: 2rem; border-top: 1px solid var(--line); font-size: .8125rem; }
.hidden { position: absolute; width: 0; height: 0; }
@media (max-width: 40rem) {
  :root { --tile: 6.6rem; --gap: .5rem; }
  header, main, footer { padding-left: .8rem; padding-right: .8rem; }
  figcaption .when { white-space: normal; }
}
@media print {
  :root {
    color-scheme: light;
    --page: #fff; --card: #fff; --mat: #fff; --ink: #000; --dim: #444; --line: #bbb; --mark: #7a4500;
    --shadow: none; --tile: 2.85cm; --gap: .25cm;
  }
  @page { margin: 1.2cm; }
  body { font-size: 9pt; }
  header, main, footer { max-width: none; padding: 0; }
  nav { display: none; }
  .tiles.many { content-visibility: visible; }
  .mat { padding: 0; }
  figure { padding: 0; break-inside: avoid; }
  .tiles li { break-inside: avoid; }
  h2, h3 { break-after: avoid; }
  figcaption { font-size: 7pt; }
}
)css";

} // namespace photocli
