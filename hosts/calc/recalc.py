#!/usr/bin/env python3
"""Calculate worksheet formulas in a headless LibreOffice Calc with the tavlib6 extension.

    python3 hosts/calc/recalc.py OXT FORMULAS OUT.ods [--timeout SECONDS] [--functions OUT.tsv]

FORMULAS holds one formula per line as a user types it into a cell (=HPT(5000000;700)); a line
"=PTHS(2800000;6000)<TAB>2" enters an array formula over 2 cells of a row. The script installs
OXT into a throwaway user profile (as unopkg add does), starts soffice headless with that profile,
writes each formula's text into column A of a new sheet and the formula into column B,
recalculates, saves the sheet as OUT.ods and prints one line per formula: the formula as Calc
stored it (add-in functions under their programmatic names, =ORG.TAVLIB6.CALC.FUNCTIONS.HPT(...)),
then its cells, separated by tabs; a cell is a number (repr, all digits), a text in double
quotes, or Err:NNN (Calc's error code).

--functions writes what the Function Wizard shows of each add-in function (category Add-In):
name, description, then each argument as name: description, separated by tabs.

soffice can hang: everything, profile set-up included, ends after --timeout seconds (default
300) with the processes killed and exit status 124. Needs no display, and a HOME of its own.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import threading
import time

SYSTEM_PYTHON = '/usr/bin/python3'


def parse_lines(path):
    formulas = []
    for line in open(path, encoding='utf-8'):
        line = line.rstrip('\n')
        if line.strip() and not line.startswith('#'):
            text, _, width = line.partition('\t')
            formulas.append((text.strip(), int(width) if width else 0))
    return formulas


class Office:
    """soffice in its own session and profile, killed as a whole when done or out of time."""

    def __init__(self, profile, timeout):
        self.process, self.timed_out = None, False
        self.url = 'file://' + profile
        # LibreOffice's embedded Python takes its library from the first python3 on PATH: that
        # must be the system's, whose interpreter it is, not one of a version manager.
        path = '/usr/bin:/bin:' + os.environ.get('PATH', '')
        self.env = dict(os.environ, HOME=os.path.join(profile, 'home'), SAL_USE_VCLPLUGIN='svp', PATH=path)
        self.env.pop('DISPLAY', None)
        os.makedirs(self.env['HOME'], exist_ok=True)
        self.watchdog = threading.Timer(timeout, self.out_of_time)
        self.watchdog.daemon = True
        self.watchdog.start()

    def out_of_time(self):
        self.timed_out = True
        print('recalc: LibreOffice did not finish in time; killed', file=sys.stderr)
        self.kill()
        time.sleep(10)  # the main thread ends by itself once the bridge is gone; if it hangs:
        os._exit(124)

    def start(self, pipe):
        self.process = subprocess.Popen(
            ['soffice', '--headless', '--invisible', '--nologo', '--norestore', '--nodefault',
             '--nolockcheck', '-env:UserInstallation=' + self.url,
             '--accept=pipe,name=%s;urp;StarOffice.ComponentContext' % pipe],
            env=self.env, start_new_session=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def kill(self):
        if self.process and self.process.poll() is None:
            try:
                os.killpg(self.process.pid, 9)
            except ProcessLookupError:
                pass


def connect(pipe, office):
    import uno
    from com.sun.star.connection import NoConnectException
    local = uno.getComponentContext()
    resolver = local.ServiceManager.createInstanceWithContext('com.sun.star.bridge.UnoUrlResolver', local)
    while True:
        try:
            return resolver.resolve('uno:pipe,name=%s;urp;StarOffice.ComponentContext' % pipe)
        except NoConnectException:
            if office.process.poll() is not None:
                raise RuntimeError('soffice ended before it accepted a connection')
            time.sleep(0.5)


def install(context, oxt):
    """What `unopkg add` does, inside the running soffice (unopkg refuses to run as root)."""
    import uno
    import unohelper
    from com.sun.star.task import XInteractionHandler
    from com.sun.star.ucb import XCommandEnvironment
    approve = uno.getTypeByName('com.sun.star.task.XInteractionApprove')

    class Approve(unohelper.Base, XInteractionHandler):
        """Says yes to the questions of an installation, as unopkg does."""
        def handle(self, request):
            for continuation in request.getContinuations():
                if continuation.queryInterface(approve):
                    continuation.select()
                    return

    class Environment(unohelper.Base, XCommandEnvironment):
        def getInteractionHandler(self):
            return Approve()

        def getProgressHandler(self):
            return None

    manager = context.getValueByName('/singletons/com.sun.star.deployment.ExtensionManager')
    manager.addExtension(uno.systemPathToFileUrl(oxt), (), 'user', None, Environment())


def prop(name, value):
    import uno
    p = uno.createUnoStruct('com.sun.star.beans.PropertyValue')
    p.Name, p.Value = name, value
    return p


def shown(cell):
    from com.sun.star.sheet.FormulaResult import STRING
    if cell.getError():
        return 'Err:%d' % cell.getError()
    if cell.getPropertyValue('FormulaResultType2') == STRING:
        return '"%s"' % cell.getString()
    return repr(cell.getValue())


def calculate(context, formulas, out_path):
    desktop = context.ServiceManager.createInstanceWithContext('com.sun.star.frame.Desktop', context)
    doc = desktop.loadComponentFromURL('private:factory/scalc', '_blank', 0, (prop('Hidden', True),))
    sheet = doc.Sheets.getByIndex(0)
    for row, (text, width) in enumerate(formulas):
        sheet.getCellByPosition(0, row).setString(text)
        if width:
            sheet.getCellRangeByPosition(1, row, width, row).setArrayFormula(text)
        else:
            sheet.getCellByPosition(1, row).setPropertyValue('FormulaLocal', text)
    doc.calculateAll()
    lines = ['\t'.join([sheet.getCellByPosition(1, row).getFormula()] +
                        [shown(sheet.getCellByPosition(1 + k, row)) for k in range(max(width, 1))])
             for row, (_, width) in enumerate(formulas)]
    import uno
    doc.storeToURL(uno.systemPathToFileUrl(os.path.abspath(out_path)), (prop('FilterName', 'calc8'),))
    doc.close(True)
    return lines


def write_functions(context, path):
    from com.sun.star.sheet.FunctionCategory import ADDIN
    descriptions = context.ServiceManager.createInstanceWithContext('com.sun.star.sheet.FunctionDescriptions', context)
    with open(path, 'w', encoding='utf-8') as out:
        for k in range(descriptions.getCount()):
            function = {p.Name: p.Value for p in descriptions.getByIndex(k)}
            if function['Category'] == ADDIN:
                fields = [function['Name'], function['Description']]
                fields += ['%s: %s' % (a.Name, a.Description) for a in function['Arguments'] or ()]
                out.write('\t'.join(fields) + '\n')


def option(args, name, default):
    if name not in args:
        return default
    k = args.index(name)
    value = args[k + 1]
    del args[k:k + 2]
    return value


def main():
    try:
        import uno  # noqa: F401
    except ImportError:  # LibreOffice's bridge belongs to the system's Python (python3-uno)
        if sys.executable != SYSTEM_PYTHON and os.path.exists(SYSTEM_PYTHON):
            os.execv(SYSTEM_PYTHON, [SYSTEM_PYTHON] + sys.argv)
        sys.exit('recalc: no Python-UNO bridge (python3-uno)')
    args = sys.argv[1:]
    timeout = float(option(args, '--timeout', 300))
    functions = option(args, '--functions', None)
    if len(args) != 3:
        sys.exit(__doc__)
    oxt, formulas, out_path = os.path.abspath(args[0]), parse_lines(args[1]), args[2]
    profile = tempfile.mkdtemp(prefix='tavlib6-calc-')
    office = Office(profile, timeout)
    pipe = 'tavlib6calc%d' % os.getpid()
    try:
        office.start(pipe)
        context = connect(pipe, office)
        install(context, oxt)
        lines = calculate(context, formulas, out_path)
        if functions:
            write_functions(context, functions)
        try:
            context.ServiceManager.createInstanceWithContext('com.sun.star.frame.Desktop', context).terminate()
        except Exception:  # the bridge goes down with soffice: that is the end we want
            pass
    except Exception:
        if not office.timed_out:
            raise
    finally:
        office.kill()
        shutil.rmtree(profile, ignore_errors=True)
    if office.timed_out:
        return 124
    print('\n'.join(lines))
    return 0


if __name__ == '__main__':
    sys.exit(main())
