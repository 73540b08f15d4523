% The MEX gateway tavlib6 in Octave against the library itself, as the tvl command prints it
% (17 significant digits, which read back to the same double): values of every family, output
% cells, broadcasting of arrays, the threaded path of large arrays, error identifiers and texts,
% the 'nan' option. Run by tests/hosts/octave_test.sh with TVL naming the tvl command.
1;

function [values, status, text] = tvl(varargin)
  % tvl NAME ARGS...: the value, or the output cells as name=value lines, and the exit status.
  command = [getenv('TVL') ' -p 17'];
  for k = 1:numel(varargin)
    command = [command ' ''' varargin{k} ''''];
  end
  [status, text] = system([command ' 2>&1']);
  text = strtrim(text);
  values = str2double(regexprep(strsplit(text, "\n"), '^\w+=', ''));
end

function check(ok, what)
  global passed failures
  if ok
    passed += 1;
  else
    failures{end + 1} = what;
  end
end

global passed failures
passed = 0;
failures = {};

% Values of each family equal the library's own, bit for bit.
calls = {'HPT', {5e6, 700}; 'TPH', {5e6, 2.9e6}; 'TPS', {1e6, 7000}; 'PHS', {3e6, 6500};
         'HSTX', {400, 0.5}; 'VPTX', {1e5, 372.7559186, 0.3}; 'PST', {300}; 'TSP', {1e5};
         'THERMCONDPT', {1e6, 500}; 'DYNVISPH', {1e6, 3e6}; 'HEXPANSIONPTPEFF', {1e7, 773.15, 1e4, 0.85};
         'VMSPT', {1e5, 360}; 'DDDPHPT', {1e6, 500}; 'SURFTENT', {300}; 'PMELTIT', {260};
         'H3RT', {500, 650}; 'T2BPH', {5e6, 3.5e6}; 'WATERSTATEAREA', {1e5, 300};
         'gCPIDT', {1, 300}; 'gCPGST', {'N2:79;O2:21', 300}; 'gSGSPT', {'AirMix', 1e5, 350};
         'gTGSH', {'CO2', 3e5}; 'gMMGS', {'AirMix'}; 'gVFGSGS', {'AirMix', 'O2'}};
for k = 1:rows(calls)
  args = calls{k, 2};
  printed = cellfun(@(a) num2str(a, 17), args, 'UniformOutput', false);
  check(isequal(tavlib6(calls{k, 1}, args{:}), tvl(calls{k, 1}, printed{:})), ['value of ' calls{k, 1}]);
end
check(isequal(tavlib6('tvlhpt', 5e6, 700), tavlib6('HPT', 5e6, 700)), 'names with the prefix, in any case');
check(isequal(tavlib6('HPT', single(5e6), int32(700)), tavlib6('HPT', 5e6, 700)), 'single and integer arguments');
[~, ~, airmix] = tvl('gGSGS', 'AirMix');
check(strcmp(tavlib6('gGSGS', 'AirMix'), airmix), 'a text result');

% Output cells: the value, then the cells in the order of the signature.
[ok, p, T] = tavlib6('PT1HS', 5e5, 1400);
check(ok == 1 && isequal([p; T], tvl('PT1HS', '5e5', '1400')'), 'the two output cells of PT1HS');
out = cell(1, 14);
[~, out{:}] = tavlib6('VUSHCVWDERPTPT', 1e6, 500);
check(isequal(cell2mat(out)', tvl('VUSHCVWDERPTPT', '1e6', '500')'), 'the fourteen output cells');

% Arrays broadcast as element-wise operators do; each element is the scalar call.
p = [1e5; 1e6; 1e7];
T = [400 500];
h = tavlib6('HPT', p, T);
check(isequal(size(h), [3 2]) && h(3, 2) == tavlib6('HPT', 1e7, 500) && h(1, 1) == tavlib6('HPT', 1e5, 400), 'column by row');
h3 = tavlib6('HPT', reshape([1e6 2e6], 1, 1, 2), [450; 550]);
check(isequal(size(h3), [2 1 2]) && h3(2, 1, 2) == tavlib6('HPT', 2e6, 550), 'three dimensions');
check(isempty(tavlib6('HPT', zeros(0, 3), 500)), 'an empty array');
[~, ps, Ts] = tavlib6('PT1HS', [5e5 6e5], 1400);
[~, p2, T2] = tavlib6('PT1HS', 6e5, 1400);
check(isequal(size(ps), [1 2]) && ps(2) == p2 && Ts(2) == T2, 'output cells over an array');
T = linspace(300, 800, 20000);
h = tavlib6('HPT', 1e6, T);
check(isequal(size(h), [1 20000]) && all(h([1 777 12345 20000]) == arrayfun(@(t) tavlib6('HPT', 1e6, t), T([1 777 12345 20000]))),
      'a batch large enough for threads');
cp = tavlib6('gCPGST', 'AirMix', [300 400]);
check(cp(2) == tavlib6('gCPGST', 'AirMix', 400), 'a composition text with an array');

% Failures: an error with the code in its identifier and the library's text, or NaN.
function expect_error(identifier, text, varargin)
  try
    tavlib6(varargin{:});
    check(false, ['no error from ' varargin{1}]);
  catch err
    check(strcmp(err.identifier, identifier) && !isempty(strfind(err.message, text)), [identifier ': ' err.message]);
  end
end
failing = {'PST', {'200'}, {[300 200]}; 'gCPGST', {'N2:abc', '300'}, {'N2:abc', 300};
           'gCPGST', {'Unobtainium', '300'}, {'Unobtainium', 300}; 'TPH', {'1e9', '1e6'}, {1e9, 1e6}};
for k = 1:rows(failing)
  [~, status, message] = tvl(failing{k, 1}, failing{k, 2}{:});
  parts = regexp(message, '^error (\d+): (.*)$', 'tokens', 'once');
  expect_error(['tavlib6:code' parts{1}], parts{2}, failing{k, 1}, failing{k, 3}{:});
  check(status == 2 && tavlib6('GETLASTERROR') == str2double(parts{1}), 'the code stays the last error');
end
expect_error('tavlib6:size', 'broadcast', 'HPT', [1e5; 1e6; 1e7], [400; 500]);
expect_error('tavlib6:arguments', 'takes 2 arguments', 'HPT', 1e5);
expect_error('tavlib6:name', 'no function', 'NOSUCHFUNCTION', 1);
expect_error('tavlib6:argument', 'real numbers', 'HPT', 'abc', 300);
[v, codes] = tavlib6('PST', [300 200], 'nan');
check(v(1) == tavlib6('PST', 300) && isnan(v(2)) && isequal(codes, [0 2]), 'NaN and the codes with the nan option');
[~, pn, Tn, codes] = tavlib6('PTHS', [3e6 -1e9], 6500, 'NaN');
[~, p1, T1] = tavlib6('PTHS', 3e6, 6500);
check(isnan(pn(2)) && isnan(Tn(2)) && pn(1) == p1 && Tn(1) == T1 && codes(2) == 2, 'NaN in the output cells');

if isempty(failures)
  printf('octave: %d checks passed\n', passed);
else
  printf('FAILED: %s\n', failures{:});
  printf('octave: %d checks passed, %d failed\n', passed, numel(failures));
  exit(1);
end
