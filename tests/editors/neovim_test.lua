-- Neovim talks to "brindle serve" on a copy of a small game. Run by ctest:
--   BRINDLE=... GAME=... nvim --headless -u NONE -i NONE -n -S neovim_test.lua
-- GAME is a folder that the test fills anew.
local brindle = vim.env.BRINDLE
local game = vim.env.GAME
local failures = {}

local function expect(holds, what)
  if not holds then table.insert(failures, what) end
end

local function write(name, lines)
  vim.fn.mkdir(vim.fn.fnamemodify(game .. '/' .. name, ':h'), 'p')
  vim.fn.writefile(lines, game .. '/' .. name)
end

--- The messages of the findings of the buffer, when there are so many, or after a while.
local function findings(count)
  vim.wait(10000, function() return #vim.diagnostic.get(0) == count end, 20)
  local messages = vim.tbl_map(function(each) return each.message end, vim.diagnostic.get(0))
  return table.concat(messages, ' ')
end

--- Puts the cursor on the first letter of a word, in a line of the buffer.
local function go_to(line, word)
  local text = vim.api.nvim_buf_get_lines(0, line - 1, line, true)[1]
  vim.api.nvim_win_set_cursor(0, { line, text:find(word, 1, true) - 1 })
end

local function ask(method)
  local params = vim.lsp.util.make_position_params()
  local answers = vim.lsp.buf_request_sync(0, method, params, 10000) or {}
  for _, answer in pairs(answers) do
    if answer.result then return answer.result end
  end
  return {}
end

local function test()
  vim.fn.delete(game, 'rf')
  write('Small.txt', { '#GAMERULES, Small, , #112233, small, ""', '#RULESCARD',
    '#EFFECT, ALL, TRAITCHANGE:GLOW, "REQTRAIT:PLAYER:WINGAME"' })
  write('small/Cards.txt', { '#CARD, INDECK, "Éclair", E-1, , , , , "It glows."', '#TRAIT, GLOW:1',
    '#EFFECT, SELF, PHASE1, "ECHO:É 🦊:MODTRIAT:GLOW:1"' })
  write('small/Rival.txt', { '#GAME, Small', '#REFINDECK, Éclair, Cards.txt' })

  vim.cmd('edit ' .. game .. '/small/Cards.txt')
  local client = vim.lsp.start_client({ cmd = { brindle, 'serve' }, root_dir = game })
  vim.lsp.buf_attach_client(0, client)
  expect(findings(1):find('Did you mean "MODTRAIT"?', 1, true), 'a finding: ' .. findings(1))
  local marked = vim.diagnostic.get(0)[1]
  expect(marked and marked.col == #'#EFFECT, SELF, PHASE1, "ECHO:É 🦊:', 'the place of a finding')

  go_to(3, 'IAT')
  vim.cmd('normal! 3xiAIT')
  expect(findings(0) == '', 'no finding once it is mended: ' .. findings(0))

  go_to(3, 'AIT:GLOW')
  local labels = {}
  for _, item in ipairs(ask('textDocument/completion').items or {}) do
    labels[item.label] = item.detail or ''
  end
  expect(labels['MODTRAIT'] and not labels['ECHO'], 'commands to go on with')

  local hover = ask('textDocument/hover')
  expect(hover.contents and hover.contents.value:find('MODTRAIT:TRAIT:VALUE', 1, true),
    'what a command means')

  vim.cmd('silent write')
  vim.cmd('edit ' .. game .. '/small/Rival.txt')
  vim.lsp.buf_attach_client(0, client)
  go_to(2, 'clair')
  vim.lsp.buf.definition()
  vim.wait(10000, function() return vim.api.nvim_buf_get_name(0):find('Cards.txt', 1, true) end, 20)
  expect(vim.api.nvim_buf_get_name(0):find('Cards.txt', 1, true), 'the way to a card')

  go_to(2, 'GLOW')
  vim.lsp.buf.rename('SHINE')
  local function renamed(name, line, text)
    local buffer = vim.fn.bufnr(game .. '/' .. name)
    if buffer < 0 then return false end
    return vim.fn.getbufline(buffer, line)[1] == text
  end
  vim.wait(10000, function() return renamed('small/Cards.txt', 2, '#TRAIT, SHINE:1') end, 20)
  expect(renamed('small/Cards.txt', 2, '#TRAIT, SHINE:1'), 'a trait renamed where it is open')
  expect(renamed('small/Cards.txt', 3, '#EFFECT, SELF, PHASE1, "ECHO:É 🦊:MODTRAIT:SHINE:1"'),
    'behind letters of two units')
  expect(renamed('Small.txt', 3, '#EFFECT, ALL, TRAITCHANGE:SHINE, "REQTRAIT:PLAYER:WINGAME"'),
    'and in a file that is not')

  vim.lsp.stop_client(client)
  expect(vim.wait(10000, function() return #vim.lsp.get_active_clients() == 0 end, 20),
    'an end in order')
end

local done, problem = pcall(test)
if not done then table.insert(failures, problem) end
for _, failure in ipairs(failures) do io.stderr:write('missing: ' .. failure .. '\n') end
vim.cmd(#failures == 0 and 'qall!' or 'cquit')
