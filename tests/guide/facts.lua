-- Tells of a document what the tests look at, a line each:
--   place ID                   a heading that a link may name
--   link TARGET                picture TARGET
--   code SECTION WORD...       all that is code in a section
-- and writes what is to be spelt, which code is not, into the file $PROSE.

local lines = {}
local section = 0
local code = {}

local function say(...) table.insert(lines, table.concat({...}, ' ')) end

local function end_section()
  if #code > 0 then say('code', section, (table.concat(code, ' '):gsub('%s+', ' '))) end
  section, code = section + 1, {}
end

local function write_prose(doc)
  local prose = doc:walk{
    Code = function() return pandoc.Space() end,
    CodeBlock = function() return {} end,
    RawBlock = function() return {} end,
    RawInline = function() return {} end,
    Str = function(word) if word.text:match('^%a+://') then return {} end end
  }
  local stream = assert(io.open(os.getenv('PROSE'), 'ab'))
  stream:write(pandoc.write(prose, 'plain', {wrap_text = 'wrap-none'}), '\n')
  stream:close()
end

function Pandoc(doc)
  write_prose(doc)
  for _, block in ipairs(doc.blocks) do
    if block.t == 'Header' then
      end_section()
      say('place', block.identifier)
    end
    pandoc.Pandoc{block}:walk{
      Code = function(word) table.insert(code, word.text) end,
      CodeBlock = function(part) table.insert(code, part.text) end,
      Link = function(link) say('link', link.target) end,
      Image = function(image) say('picture', image.src) end
    }
  end
  end_section()
  io.stdout:write(table.concat(lines, '\n'), '\n')
  return pandoc.Pandoc{}
end
