// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace qel::host {

inline constexpr const char* pageStyle = R"(
:root { color-scheme: light dark; --paper: #f6f7f9; --card: #fff; --ink: #1d2433; --soft: #5a6478; --line: #dfe4ec;
  --accent: #1f5fd0; --code: #f1f4f9; }
@media (prefers-color-scheme: dark) { :root { --paper: #12151c; --card: #1a1f29; --ink: #e6eaf2; --soft: #9aa5b8;
  --line: #2b3342; --accent: #7fb0ff; --code: #141922; } }
* { box-sizing: border-box; }
body { margin: 0; background: var(--paper); color: var(--ink); font: 16px/1.55 system-ui, sans-serif; }
header, main, footer { max-width: 1440px; margin: 0 auto; padding: 0 clamp(16px, 4vw, 48px); }
header { padding-top: 48px; }
h1 { font-size: clamp(1.7rem, 4vw, 2.5rem); line-height: 1.15; letter-spacing: -0.02em; margin: 0 0 12px; }
header p { max-width: 44em; color: var(--soft); margin: 0 0 20px; }
.facts { display: flex; flex-wrap: wrap; gap: 6px 28px; margin: 0 0 24px; }
.facts div { display: flex; gap: 8px; }
.facts dt, .state dt { color: var(--soft); }
.facts dd, .state dd { margin: 0; font-variant-numeric: tabular-nums; }
nav { border-block: 1px solid var(--line); padding: 12px 0; display: flex; flex-wrap: wrap; gap: 4px 22px; }
a { color: var(--accent); text-decoration: none; }
a:hover { text-decoration: underline; }
h2 { font-size: 1.35rem; letter-spacing: -0.01em; margin: 48px 0 18px; scroll-margin-top: 16px; }
.grid { display: grid; gap: 24px; grid-template-columns: repeat(auto-fill, minmax(min(100%, 400px), 1fr)); }
figure { margin: 0; background: var(--card); border: 1px solid var(--line); border-radius: 12px; overflow: hidden; }
figure > a { display: grid; place-items: center; background: #dfe5ee; }
img { display: block; max-width: 100%; height: auto; max-height: 70vh; width: auto; }
figcaption { padding: 16px 20px 18px; }
h3 { margin: 0 0 6px; font-size: 1.05rem; }
h3 span { color: var(--soft); font-weight: 400; margin-right: 8px; font-variant-numeric: tabular-nums; }
figcaption p { margin: 0 0 12px; }
code, pre { font: 0.8rem/1.55 ui-monospace, SFMono-Regular, Menlo, Consolas, monospace; }
.calls { list-style: none; margin: 0 0 12px; padding: 10px 12px; background: var(--code); border-radius: 8px; }
.calls li { padding-left: 1.2em; text-indent: -1.2em; overflow-wrap: anywhere; }
.state { display: grid; grid-template-columns: max-content 1fr; gap: 1px 14px; margin: 0 0 8px; font-size: 0.86rem; }
details { font-size: 0.86rem; }
summary { color: var(--accent); cursor: pointer; }
pre { white-space: pre-wrap; overflow-wrap: anywhere; margin: 8px 0 0; color: var(--soft); }
footer { color: var(--soft); font-size: 0.86rem; padding-block: 48px; }
)";

} // namespace qel::host
