#!/usr/bin/env python3
"""Build the Windows help file tavlib6.chm from the reference pages in docs/.

    python3 tools/gen_chm.py OUTDIR      writes OUTDIR/tavlib6.chm (and its sources in OUTDIR/chm/)

The Markdown pages become HTML (Debian's python3-markdown), links between them are kept, and
the help project gets a table of contents (each page with its sections), an index (every
function, each family, the units and errors) and full-text search. chmcmd (Debian's fp-utils)
compiles the project. tvlSHOWTVLHELP opens the file when it lies beside tavlib6.dll.
"""
import html
import os
import re
import shutil
import subprocess
import sys

import markdown

TOOLS = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, TOOLS)
import gen_exports  # noqa: E402  (the parser of exports.txt)

ROOT = os.path.dirname(TOOLS)
DOCS = os.path.join(ROOT, 'docs')
TITLE = 'tavlib6 reference'

STYLE = '''body { font-family: Segoe UI, Tahoma, sans-serif; font-size: 10pt; margin: 12px; }
h1 { font-size: 16pt; color: #1a4d80; } h2 { font-size: 12pt; color: #1a4d80; border-bottom: 1px solid #ccc; }
table { border-collapse: collapse; } th, td { border: 1px solid #bbb; padding: 2px 6px; vertical-align: top; }
th { background: #e8eef5; } code, pre { font-family: Consolas, Courier New, monospace; }
pre { background: #f4f4f4; border: 1px solid #ddd; padding: 6px; }
'''

PAGE = '''<!DOCTYPE html>
<html><head><meta http-equiv="Content-Type" content="text/html; charset=utf-8">
<title>{title}</title><link rel="stylesheet" type="text/css" href="style.css"></head>
<body>
{body}
</body></html>
'''


class Page:
    def __init__(self, source, target):
        self.source, self.target = source, target
        text = open(os.path.join(DOCS, source), encoding='utf-8').read()
        self.title = re.search(r'^# (.+)$', text, re.M).group(1).strip()
        converter = markdown.Markdown(extensions=['tables', 'fenced_code', 'toc'])
        body = converter.convert(text)
        # Links between the pages point at their HTML files.
        self.body = re.sub(r'href="([\w]+)\.md(#[\w-]*)?"', lambda m: 'href="%s%s"' % (html_name(m.group(1)), m.group(2) or ''), body)
        self.sections = [(item['name'], item['id']) for top in converter.toc_tokens for item in top.get('children', [])]


def html_name(stem):
    return 'index.html' if stem == 'README' else stem + '.html'


def pages(families):
    """The index page, then the families in the order of exports.txt, then the other pages."""
    stems = ['README'] + [f.stem for f in families]
    stems += sorted(os.path.splitext(n)[0] for n in os.listdir(DOCS) if n.endswith('.md') and os.path.splitext(n)[0] not in stems)
    return [Page(stem + '.md', html_name(stem)) for stem in stems]


def sitemap_entry(name, local):
    return ('<LI><OBJECT type="text/sitemap"><param name="Name" value="%s"><param name="Local" value="%s"></OBJECT>'
            % (html.escape(name), local))


def contents(all_pages):
    out = ['<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">', '<HTML><HEAD></HEAD><BODY>', '<UL>',
           sitemap_entry(all_pages[0].title, all_pages[0].target), '<UL>']
    for page in all_pages[1:]:
        out.append(sitemap_entry(page.title, page.target))
        if page.sections:
            out.append('<UL>')
            out += [sitemap_entry(name, '%s#%s' % (page.target, anchor)) for name, anchor in page.sections]
            out.append('</UL>')
    out += ['</UL>', '</UL>', '</BODY></HTML>', '']
    return '\n'.join(out)


def index(all_pages, families):
    entries = {page.title: page.target for page in all_pages}
    for family in families:
        for e in family.exports:
            entries['tvl' + e.name] = html_name(family.stem)
    entries.update({'units': 'index.html#units', 'error codes': 'errors.html', 'batch evaluation': 'batch.html'})
    out = ['<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">', '<HTML><HEAD></HEAD><BODY>', '<UL>']
    out += [sitemap_entry(name, entries[name]) for name in sorted(entries, key=str.lower)]
    out += ['</UL>', '</BODY></HTML>', '']
    return '\n'.join(out)


def project(all_pages):
    files = '\n'.join(['style.css'] + [page.target for page in all_pages])
    return '''[OPTIONS]
Compatibility=1.1 or later
Compiled file=tavlib6.chm
Contents file=tavlib6.hhc
Index file=tavlib6.hhk
Default topic=index.html
Default Window=main
Display compile progress=No
Full-text search=Yes
Language=0x409 English (United States)
Title={title}

[WINDOWS]
main="{title}","tavlib6.hhc","tavlib6.hhk","index.html","index.html",,,,,0x63520,320,0x384e,[80,60,1000,760],,,,,,,0

[FILES]
{files}
'''.format(title=TITLE, files=files)


def main(argv):
    if len(argv) != 1:
        sys.exit(__doc__)
    out = os.path.abspath(argv[0])
    work = os.path.join(out, 'chm')
    shutil.rmtree(work, ignore_errors=True)
    os.makedirs(work)
    families = [f for f in gen_exports.parse() if f.exports]
    all_pages = pages(families)
    written = {'style.css': STYLE, 'tavlib6.hhc': contents(all_pages), 'tavlib6.hhk': index(all_pages, families),
               'tavlib6.hhp': project(all_pages)}
    written.update({page.target: PAGE.format(title=html.escape(page.title), body=page.body) for page in all_pages})
    for name, text in written.items():
        with open(os.path.join(work, name), 'w', encoding='utf-8', newline='\r\n') as f:
            f.write(text)
    result = subprocess.run(['chmcmd', 'tavlib6.hhp'], cwd=work, capture_output=True, text=True)
    if result.returncode != 0 or not os.path.exists(os.path.join(work, 'tavlib6.chm')):
        sys.exit('chmcmd failed:\n' + result.stdout + result.stderr)
    shutil.move(os.path.join(work, 'tavlib6.chm'), os.path.join(out, 'tavlib6.chm'))
    print('%s: %d pages, %d functions in the index' % (os.path.join(out, 'tavlib6.chm'), len(all_pages),
                                                      sum(len(f.exports) for f in families)))
    return 0


if __name__ == '__main__':
    sys.exit(main(sys.argv[1:]))
