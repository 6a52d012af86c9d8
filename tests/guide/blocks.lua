-- Writes the code blocks of a document into the folder $BLOCKS, as they come: NUMBER.MARK each, "none" for a block
-- without a mark. NUMBER.reason beside it holds what a comment above it says of why it is not run.

local count = 0
local reason

local function write(name, text)
  local stream = assert(io.open(os.getenv('BLOCKS') .. '/' .. name, 'wb'))
  stream:write(text, '\n')
  stream:close()
end

function RawBlock(block)
  reason = block.text:match('^<!%-%- not run: (.+) %-%->')
end

function Para()
  reason = nil
end

function CodeBlock(block)
  count = count + 1
  local number = string.format('%03d', count)
  write(number .. '.' .. (block.classes[1] or 'none'), block.text)
  if reason then write(number .. '.reason', reason) end
  reason = nil
end
