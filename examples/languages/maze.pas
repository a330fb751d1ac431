program Maze;

{ Digs a maze, finds the way through it, and draws both.
  Compile it with "fpc maze.pas" and give it a width, a height and a seed. }

{$mode objfpc}{$H+}
{$IFDEF DEBUG}{$R+}{$Q+}{$ENDIF}

uses
  SysUtils, Classes, Math;

const
  Wall = '#';
  Floor_ = ' ';
  Trail = '.';
  MaxSide = $FF;           // hexadecimal: 255
  NewPage = #12;
  Greeting = 'It''s a maze of %d by %d:';

type
  TDirection = (dNorth, dEast, dSouth, dWest);
  TDirections = set of TDirection;

  EBadSize = class(Exception);

  { TMaze }
  TMaze = class(TObject)
  private
    FCells: array of array of Char;
    FWidth, FHeight: Integer;
    FSteps: Int64;
    procedure Dig(X, Y: Integer);
    function GetCell(X, Y: Integer): Char;
  protected
    procedure Clear; virtual;
  public
    constructor Create(AWidth, AHeight: Integer);
    destructor Destroy; override;
    function Solve(X, Y: Integer): Boolean;
    procedure Print(Target: TStrings);
    property Cells[X, Y: Integer]: Char read GetCell; default;
    property Steps: Int64 read FSteps;
  end;

const
  DX: array[TDirection] of Integer = (0, 1, 0, -1);
  DY: array[TDirection] of Integer = (-1, 0, 1, 0);

constructor TMaze.Create(AWidth, AHeight: Integer);
begin
  inherited Create;
  if not InRange(AWidth, 3, MaxSide) or not InRange(AHeight, 3, MaxSide) then
    raise EBadSize.CreateFmt('No maze has the size %d x %d.', [AWidth, AHeight]);
  FWidth := AWidth or 1;
  FHeight := AHeight or 1;
  Clear;
  Dig(1, 1);
end;

destructor TMaze.Destroy;
begin
  SetLength(FCells, 0);
  inherited Destroy;
end;

procedure TMaze.Clear;
var
  Row: Integer;
begin
  SetLength(FCells, FHeight, FWidth);
  for Row := 0 to FHeight - 1 do
    FillChar(FCells[Row][0], FWidth, Wall);
end;

(* Goes two cells on, in all directions in any order, and breaks the wall between. *)
procedure TMaze.Dig(X, Y: Integer);
var
  Direction: TDirection;
  Tried: TDirections = [];
  NewX, NewY: Integer;
begin
  FCells[Y][X] := Floor_;
  while Tried <> [dNorth..dWest] do
  begin
    Direction := TDirection(Random(4));
    if Direction in Tried then Continue;
    Include(Tried, Direction);
    NewX := X + 2 * DX[Direction];
    NewY := Y + 2 * DY[Direction];
    if (NewX <= 0) or (NewY <= 0) or (NewX >= FWidth) or (NewY >= FHeight) then Continue;
    if FCells[NewY][NewX] = Floor_ then Continue;
    FCells[Y + DY[Direction]][X + DX[Direction]] := Floor_;
    Dig(NewX, NewY);
  end;
end;

function TMaze.GetCell(X, Y: Integer): Char;
begin
  Result := FCells[Y][X];
end;

function TMaze.Solve(X, Y: Integer): Boolean;
var
  Direction: TDirection;
begin
  Result := (X = FWidth - 2) and (Y = FHeight - 2);
  Inc(FSteps);
  FCells[Y][X] := Trail;
  if Result then Exit;
  for Direction := Low(TDirection) to High(TDirection) do
    if (Cells[X + DX[Direction], Y + DY[Direction]] = Floor_) and Solve(X + DX[Direction], Y + DY[Direction]) then
      Exit(True);
  FCells[Y][X] := Floor_;  // a dead end
end;

procedure TMaze.Print(Target: TStrings);
var
  Row: Integer;
  Line: string;
begin
  for Row := 0 to FHeight - 1 do
  begin
    SetString(Line, PChar(@FCells[Row][0]), FWidth);
    Target.Add(Line);
  end;
end;

var
  Labyrinth: TMaze = nil;
  Output_: TStringList;
begin
  RandSeed := StrToIntDef(ParamStr(3), 20);
  Output_ := TStringList.Create;
  try
    try
      Labyrinth := TMaze.Create(StrToIntDef(ParamStr(1), 31), StrToIntDef(ParamStr(2), 11));
      if Labyrinth.Solve(1, 1) then
        Output_.Add(Format(Greeting, [Labyrinth.FWidth, Labyrinth.FHeight]));
      Labyrinth.Print(Output_);
      Write(Output_.Text);
      WriteLn('Steps: ', Labyrinth.Steps, #13#10'Done.');
    except
      on E: EBadSize do
        WriteLn(StdErr, E.ClassName, ': ', E.Message);
    end;
  finally
    Labyrinth.Free;
    Output_.Free;
  end;
end.
