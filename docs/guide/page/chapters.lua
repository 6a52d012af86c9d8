-- Makes one document of the guide: behind README.md come the chapters that it links, in that order. Links between
-- them become places of the page, pictures are found from each chapter's own folder. What the page does not hold, as a
-- source file, stays as a text without a link. A link to a place that is not there ends it all.

local path = pandoc.path

-- "../formats.md" in the folder "." is "../formats.md", and "networks.md" in the folder ".." is "../networks.md".
local function resolve(folder, target)
  return path.normalize(path.join({folder, target})):gsub('^%./', '')
end

local function read(file)
  local stream = assert(io.open(file, 'rb'))
  local text = stream:read('a')
  stream:close()
  return pandoc.read(text, 'gfm')
end

-- "../formats.md" is "formats".
local function name_of(file)
  return (path.split_extension(path.filename(file)))
end

local function is_elsewhere(target)
  return target:match('^%a[%w+.-]*:') ~= nil
end

local function list_chapters(doc)
  local files = pandoc.List{}
  local is_listed = {}
  doc:walk{
    Link = function(link)
      local file = link.target:match('^[^#]+%.md$')
      if file and not is_elsewhere(file) and not is_listed[file] then
        is_listed[file] = true
        files:insert(file)
      end
    end
  }
  return files, is_listed
end

-- The places of a chapter begin with its name; its heading has the name alone.
local function place(doc, file, is_listed)
  local name = name_of(file)
  local folder = path.directory(file)
  local is_first = file ~= 'README.md'
  return doc:walk{
    Header = function(header)
      header.identifier = is_first and name or name .. '--' .. header.identifier
      is_first = false
      return header
    end,
    Link = function(link)
      if is_elsewhere(link.target) then return link end
      local target, anchor = link.target:match('^([^#]*)#?(.*)$')
      local to = target == '' and file or resolve(folder, target)
      if not is_listed[to] then return link.content end
      link.target = '#' .. name_of(to) .. (anchor == '' and '' or '--' .. anchor)
      return link
    end,
    Image = function(image)
      image.src = resolve(folder, image.src)
      return image
    end
  }
end

local function check_places(doc)
  local is_there = {}
  doc:walk{Header = function(header) is_there[header.identifier] = true end}
  doc:walk{
    Link = function(link)
      local name = link.target:match('^#(.*)$')
      if name and not is_there[name] then error('no such place in the guide: ' .. name) end
    end
  }
end

function Pandoc(doc)
  local files, is_listed = list_chapters(doc)
  local title = table.remove(doc.blocks, 1)
  doc.meta.title = pandoc.MetaInlines(title.content)
  doc = place(doc, 'README.md', is_listed)
  for _, file in ipairs(files) do doc.blocks:extend(place(read(file), file, is_listed).blocks) end
  check_places(doc)
  return doc
end
