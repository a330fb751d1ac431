function pendulum(varargin)
% PENDULUM  Swings a damped pendulum and compares two ways of solving it.
%
%   pendulum                     with the usual values
%   pendulum('length', 2.5)      a longer one, in metres
%
% It runs in MATLAB and in Octave.

%{
The equation is  a'' = -g/l * sin(a) - d * a'
with a as the angle in radians.
%}

  options = struct('length', 1.0, 'damping', 0.15, 'start', [pi / 3, 0], 'plot', false);
  options = read_options(options, varargin{:});
  GRAVITY = 9.81;   % m/s^2

  swing = @(t, y) [y(2); -GRAVITY / options.length * sin(y(1)) - options.damping * y(2)];

  steps = 400;
  last = 10;
  [t, angles] = midpoint(swing, [0, last], options.start(:), steps);
  [tReference, reference] = ode45(swing, [0, last], options.start');

  difference = abs(interp1(tReference, reference(:, 1), t) - angles(1, :)');
  fprintf("Largest difference: %.2e rad\n", max(difference));

  crossings = find(angles(1, 1:end-1) .* angles(1, 2:end) < 0);
  if numel(crossings) >= 2
    period = 2 * mean(diff(t(crossings)));
    printf_or_disp('Period', period, 's');
  else
    warning('pendulum:slow', 'It didn''t swing often enough to tell a period.');
  end

  % The energy must fall all the time, for the damping takes it away.
  energy = 0.5 * angles(2, :).^2 + GRAVITY / options.length * (1 - cos(angles(1, :)));
  rises = sum(diff(energy) > 1e-6);
  switch rises
    case 0
      disp('The energy falls.');
    case {1, 2, 3}
      disp(['The energy rises ' num2str(rises) ' times.']);
    otherwise
      error('pendulum:energy', 'The energy rises %d times.', rises);
  end

  if options.plot
    draw(t, angles, tReference, reference);
  end
end

function [t, y] = midpoint(f, interval, y0, steps)
  h = (interval(2) - interval(1)) / steps;
  t = linspace(interval(1), interval(2), steps + 1)';
  y = zeros(numel(y0), steps + 1);
  y(:, 1) = y0;
  for k = 1:steps
    half = y(:, k) + h / 2 * f(t(k), y(:, k));
    y(:, k + 1) = y(:, k) + h * f(t(k) + h / 2, half);
  end
end

function options = read_options(options, varargin)
  if mod(numel(varargin), 2) ~= 0
    error('Options come in pairs of a name and a value.');
  end
  for k = 1:2:numel(varargin)
    name = lower(varargin{k});
    if ~isfield(options, name)
      known = strjoin(fieldnames(options)', ', ');
      error('No such option: "%s". Known are %s.', name, known);
    end
    options.(name) = varargin{k + 1};
  end
end

function printf_or_disp(what, value, unit)
  try
    fprintf('%s: %6.3f %s\n', what, value, unit);
  catch problem
    disp(problem.message);
  end
end

function draw(t, angles, tReference, reference)
  figure('Name', 'Pendulum', 'Color', 'w');
  plot(t, angles(1, :)', 'b-', ...        the way that is ours
       tReference, reference(:, 1), 'r:');
  xlabel('Time in s'); ylabel('Angle in rad');
  legend({'midpoint', 'ode45'});
  grid on
end
