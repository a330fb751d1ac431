#!/usr/bin/env lua
--[[
  Digs a maze and finds the way through it.
  Run it with:  lua maze.lua 31 15 "a seed"
]]

local WALL <const>, FLOOR <const>, WAY <const> = "#", ' ', "."
local MASK = 0xFF

--- A maze is a grid of cells; both sizes are odd.
local Maze = {}
Maze.__index = Maze
Maze.__tostring = function(self)
  local rows = {}
  for y = 1, self.height do
    rows[y] = table.concat(self.cells[y])
  end
  return table.concat(rows, "\n")
end

function Maze.new(width, height)
  local self = setmetatable({ width = width | 1, height = height | 1, cells = {} }, Maze)
  for y = 1, self.height do
    self.cells[y] = {}
    for x = 1, self.width do self.cells[y][x] = WALL end
  end
  return self
end

-- The four directions in a random order.
local function directions()
  local list = { { 0, -1 }, { 1, 0 }, { 0, 1 }, { -1, 0 } }
  for i = #list, 2, -1 do
    local j = math.random(i)
    list[i], list[j] = list[j], list[i]
  end
  return ipairs(list)
end

function Maze:dig(x, y)
  self.cells[y][x] = FLOOR
  for _, step in directions() do
    local dx, dy = table.unpack(step)
    local nx, ny = x + 2 * dx, y + 2 * dy
    if self.cells[ny] and self.cells[ny][nx] == WALL then
      self.cells[y + dy][x + dx] = FLOOR
      self:dig(nx, ny)
    end
  end
end

--[==[ Looks for the way breadth first. A cell is remembered by one number,
      so that "came" is a plain table: came[cell] = cell before it. ]==]
function Maze:solve(from, to)
  local came, queue, head = { [from] = false }, { from }, 1
  while queue[head] do
    local cell = queue[head]
    head = head + 1
    if cell == to then break end
    local x, y = (cell - 1) % self.width + 1, (cell - 1) // self.width + 1
    for _, step in directions() do
      local nx, ny = x + step[1], y + step[2]
      local next_cell = (ny - 1) * self.width + nx
      if self.cells[ny] and self.cells[ny][nx] ~= WALL and came[next_cell] == nil then
        came[next_cell] = cell
        queue[#queue + 1] = next_cell
      end
    end
  end
  if came[to] == nil then return nil, "there's no way" end
  local length, cell = 0, to
  repeat
    local x, y = (cell - 1) % self.width + 1, (cell - 1) // self.width + 1
    self.cells[y][x] = WAY
    length, cell = length + 1, came[cell]
  until not cell
  return length
end

local function seed_of(text)
  local sum = 5381
  for _, code in utf8.codes(text) do
    sum = (sum * 33 ~ code) & 0x7FFFFFFF
  end
  return sum
end

local function main(width, height, seed)
  local w, h = tonumber(width or 31), tonumber(height or 15)
  if not (w and h and w >= 3 and h >= 3) then
    io.stderr:write([=[usage: maze.lua WIDTH HEIGHT ["SEED"]]=], '\n')
    return false
  end
  if seed then math.randomseed(seed_of(seed)) end

  local maze = Maze.new(math.floor(w), math.floor(h))
  maze:dig(2, 2)
  local ok, length = pcall(maze.solve, maze, maze.width + 2, (maze.height - 2) * maze.width + maze.width - 1)
  if not ok then
    goto failed
  end
  print(maze)
  print(('way: %d steps, seed "%s", check %02x'):format(length, seed or 'none', #tostring(maze) & MASK))
  do return true end
  ::failed::
  error("maze: " .. length, 0)
end

local done <close> = setmetatable({}, { __close = function() io.stdout:flush() end })
os.exit(main(...) and 0 or 1, true)
